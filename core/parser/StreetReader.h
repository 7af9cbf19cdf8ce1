#ifndef POSTWRIGHT_CORE_PARSER_STREETREADER_H_
#define POSTWRIGHT_CORE_PARSER_STREETREADER_H_

#include "core/parser/AddressCaptures.h"
#include "core/parser/PostalWords.h"
#include "core/parser/ScannedText.h"
#include "core/parser/TailTable.h"

namespace postwright {

// Walks forward from a street to the end of its address, and captures what it passes: the half of
// the patterns that follows the house number. The table says at each choice which way leads to a
// match, so nothing here is tried and taken back.
//
// Borrows everything; `captures` is what it writes into.
class StreetReader {
 public:
  StreetReader(const PostalWords& words, const TailTable& table, const ScannedText& text,
               AddressCaptures& captures)
      : words_(words), table_(table), text_(text), captures_(captures) {}

  // Where the street after a number that ends at `at` begins; TailTable::kNowhere where none does
  // that leads to a match.
  int BeginBehindNumber(int at) const;

  // Reads the street that begins at `at`, as BeginBehindNumber() gave it, and all after it.
  void Read(int at);

  // Reads what follows a post-office box, and at the end of every form, from its first
  // character on.
  void ReadCityStateZip(int at);
  void ReadZip(int at);

 private:
  int PredirectionalEnd(int at) const;
  bool ReadDirectionalStreet(int at);
  void ReadNamedStreet(int at);
  void ReadSuffix(int at, Group suffix, Group postdirectional);
  void ReadPostdirectional(int at, Group group);
  void ReadTail(int at);
  int ReadSecondary(int at);

  void Capture(Group group, int begin, int end) { captures_[group] = {begin, end}; }

  const PostalWords& words_;
  const TailTable& table_;
  const ScannedText& text_;
  AddressCaptures& captures_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_PARSER_STREETREADER_H_
