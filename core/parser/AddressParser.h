#ifndef POSTWRIGHT_CORE_PARSER_ADDRESSPARSER_H_
#define POSTWRIGHT_CORE_PARSER_ADDRESSPARSER_H_

#include <postwright/AddressInfo.h>
#include <postwright/Export.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace postwright {

class AddressReader;
class ValuePatterns;
struct AddressCaptures;

// Finds the US postal address in a label's text and splits it into its elements.
//
//   const AddressInfo info =
//       AddressParser::GetInstance()->Parse(L"Jane Doe\n12 n main street apt 4\naustin tx 78701");
//   // info.prefix L"JANE DOE", info.streetLine L"12 N MAIN ST APT 4", info.city L"AUSTIN"
//
// Three forms are known, tried in this order: military (APO, FPO, DPO), post-office box, house
// number and street. Each needs a state and a ZIP code; a text with neither is not read.
//
// The parser follows std::locale as it is when the parser is created, for the life of the process.
// It must be UTF-8 by then, or letters beyond A to Z are dropped: "12 Calle Peña St" is read as
// "12 CALLE PEA ST". setlocale() alone is not enough; a named locale made global does both:
//
//   std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
//
// It keeps the parse under way in members and takes no lock: one thread at a time.
class POSTWRIGHT_CORE_EXPORT AddressParser {
 public:
  // Returns the process's only parser, created on the first call and never destroyed. Creating it
  // builds the tables and compiles the patterns, some milliseconds. Not for two threads at once.
  static AddressParser* GetInstance();

  AddressParser(const AddressParser&) = delete;
  AddressParser& operator=(const AddressParser&) = delete;

  // Reads `text` (any line breaks, any case, any length). Returns a record that is empty
  // throughout where no address is found; throws nothing but std::bad_alloc. The time taken is in
  // proportion to the length of the text, whatever it holds; no text is given up for its length.
  AddressInfo Parse(const std::wstring& text);

 private:
  using Table = std::map<std::wstring, std::wstring>;

  AddressParser();
  ~AddressParser();

  void ParseAddress();
  void TakeCaptures(const AddressCaptures& captures);
  void ExtractAddress(std::map<std::wstring, std::wstring> captures);
  std::wstring GetNormalizedKey(const std::wstring& name) const;
  std::wstring GetNormalizedValueForKey(const std::wstring& key, std::wstring& value) const;
  std::wstring GetNormalizedValueByStaticLookup(const Table& map, const std::wstring& value) const;
  std::wstring GetNormalizedValueByRegexLookup(const Table& map, const std::wstring& value) const;
  void InitializeRegex();

  static AddressParser* instance_;

  Table directionMap_;
  Table stateMap_;
  Table suffixMap_;
  Table numberedUnitMap_;
  Table plainUnitMap_;
  std::vector<std::wstring> groupNames_;
  Table unitMap_;
  std::wstring text_;
  AddressInfo info_;
  std::unique_ptr<AddressReader> reader_;
  std::unique_ptr<ValuePatterns> valuePatterns_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_PARSER_ADDRESSPARSER_H_
