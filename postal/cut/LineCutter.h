#ifndef POSTWRIGHT_POSTAL_CUT_LINECUTTER_H_
#define POSTWRIGHT_POSTAL_CUT_LINECUTTER_H_

#include <optional>
#include <string>
#include <vector>

#include "common/AsciiText.h"
#include "postal/base/JoinedReader.h"
#include "postal/cut/SentLines.h"
#include "postal/places/ZipList.h"

namespace postwright::postal {

// An address as it was sent: UTF-8, lines within a field separated by line feeds.
struct SentAddress {
  std::string address1;
  std::string address2;  // the delivery line
  std::string city;
  std::string state;
  std::string zip;
};

// The same, cut again. A field that is right stays as it was sent.
struct CutAddress {
  std::string above;  // lines of neither, as they were sent, separated by line feeds
  std::string address2;
  std::string city;
};

struct CutQuestion;

// Takes delivery line and city together as one run of words, and cuts it where the names of the ZIP
// code say so:
//
//   LineCutter(zips, nullptr).Cut({"", "3867 HILL AVE GLN", "BURNIE", "MD", "21060"});
//   // {"", "3867 HILL AVE", "GLEN BURNIE"}
//
// A city that is a name of the ZIP code as it was sent is left alone, unless a base knows the
// street by another cut only. Otherwise the longest name that leaves a street is taken; without
// one, a line break within the city is where the last line begins. Words that were abbreviated on
// the way are taken back. Lines that are not part of the address (a name above a military one, a
// firm between street and city) are set apart.
//
// Borrows both; `reader` may be null. One thread where there is a reader, else any.
class LineCutter {
 public:
  LineCutter(const ZipList& zips, JoinedReader* reader) : zips_(zips), reader_(reader) {}

  // Returns nullopt where the words could be cut in several ways, and one of them would be a guess.
  std::optional<CutAddress> Cut(const SentAddress& sent) const;

 private:
  using Lines = std::vector<SentLine>;
  using Question = CutQuestion;

  static CutAddress CutMilitary(const Question& question, const std::string& city);
  std::optional<CutAddress> CutWithoutCity(const Question& question) const;
  static std::optional<CutAddress> CutAtBreak(const Question& question);
  std::optional<CutAddress> CutAtName(const Question& question, const std::string& city) const;
  std::optional<size_t> FindCut(const Question& question) const;
  std::optional<CutAddress> CutBeforeLetter(const Question& question) const;
  static std::optional<CutAddress> Compose(const Question& question, size_t cut, std::string city);
  std::vector<std::string> NamesOf(const std::string& zip) const;
  static std::optional<std::string> NameOf(const Question& question, const Words& words);
  static bool IsName(const Question& question, const Words& words);
  static std::string CityOf(const Question& question, const Words& words);
  static std::vector<size_t> OtherCuts(const Question& question);
  static bool IsStreetEaten(const Question& question);
  static bool IsOwnCity(const Question& question);
  bool IsCityMissing(const Question& question) const;
  bool KnowsStreet(const Question& question, const Words& line) const;

  const ZipList& zips_;
  JoinedReader* const reader_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_CUT_LINECUTTER_H_
