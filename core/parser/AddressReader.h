#ifndef POSTWRIGHT_CORE_PARSER_ADDRESSREADER_H_
#define POSTWRIGHT_CORE_PARSER_ADDRESSREADER_H_

#include "core/parser/AddressCaptures.h"
#include "core/parser/CharacterClasses.h"
#include "core/parser/PostalWords.h"
#include "core/parser/ScannedText.h"
#include "core/parser/StreetReader.h"
#include "core/parser/TailTable.h"

#include <optional>
#include <string_view>

namespace postwright {

// Finds in a text what searching it with the three address patterns would find: the same match, the
// same groups, in time in proportion to the length of the text.
//
// The patterns have no back-references, so whether the rest of a pattern can be matched from a
// place depends on the place alone. One pass over the text from its end (TailTable) answers that
// for every place and every piece of the pattern; one walk forward then takes, at each choice, the
// first that leads to a match, which is the one that a backtracking engine ends up with.
//
// Keeps the text's analysis in members: one thread at a time.
class AddressReader {
 public:
  explicit AddressReader(PostalWords words);
  AddressReader(const AddressReader&) = delete;
  AddressReader& operator=(const AddressReader&) = delete;

  // Places are counted in int. A text longer than this holds no label; it is not read.
  static constexpr size_t kLongestText = size_t{1} << 30;

  // Reads `text`, which is in upper case. Returns nothing where no pattern finds an address.
  std::optional<AddressCaptures> Read(std::wstring_view text);

 private:
  bool ReadMilitary();
  bool IsMilitaryBase(int at) const;
  void ReadMilitaryBase(int line, int city);
  bool ReadPoBox();
  int PostOfficeBefore(int box) const;
  bool ReadStreetAddress();

  int NextSearchStart(int failed) const;
  int NextSearchStartBehindStreet(int street) const;

  bool ReadNumber(int at);
  bool ReadNumberWithUnit(int at, int digitsEnd);
  bool ReadFraction(int at, int digitsEnd);
  bool ReadPlainNumber(int at, int digitsEnd);
  bool ReadGridNumber(int at);
  bool ReadStreetBehindNumber(Group group, int begin, int shortest, int longest);

  void Capture(Group group, int begin, int end) { captures_[group] = {begin, end}; }
  bool IsZip(int at) const;
  int SkipGridNumber(int at) const;

  const PostalWords words_;
  const CharacterClasses classes_;
  TailTable table_{words_, classes_};
  ScannedText text_{classes_};
  AddressCaptures captures_;
  StreetReader street_{words_, table_, text_, captures_};
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_PARSER_ADDRESSREADER_H_
