#ifndef POSTWRIGHT_CORE_PARSER_ADDRESSGRAMMAR_H_
#define POSTWRIGHT_CORE_PARSER_ADDRESSGRAMMAR_H_

#include <boost/xpressive/xpressive_dynamic.hpp>

#include <map>
#include <string>

namespace postwright {

// The texts of the three patterns, put together from the parser's tables. In a pattern, bare blanks
// and line breaks mean nothing.
struct AddressGrammar {
  using Table = std::map<std::wstring, std::wstring>;

  AddressGrammar(const Table& directions, const Table& suffixes, const Table& states,
                 const Table& numberedUnits, const Table& plainUnits);

  std::wstring address;
  std::wstring poBox;
  std::wstring military;
};

// The three patterns that define what an address is. They are empty, and match nothing, until the
// parser is created; afterwards they never change.
//
// They are the definition, not the way in which a label is read: searching a label of a few hundred
// characters with them can take minutes. AddressReader gives the answers that three searches with
// regex_search() would give, in time that grows with the text alone.
extern boost::xpressive::wsregex gAddressRegex;          // house number and street
extern boost::xpressive::wsregex gPoBoxAddressRegex;     // post-office box
extern boost::xpressive::wsregex gMilitaryAddressRegex;  // APO, FPO, DPO

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_PARSER_ADDRESSGRAMMAR_H_
