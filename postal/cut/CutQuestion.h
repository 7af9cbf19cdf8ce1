#ifndef POSTWRIGHT_POSTAL_CUT_CUTQUESTION_H_
#define POSTWRIGHT_POSTAL_CUT_CUTQUESTION_H_

#include <string>
#include <vector>

#include "common/AsciiText.h"
#include "postal/base/JoinedReader.h"
#include "postal/cut/SentLines.h"

namespace postwright::postal {

// An address that is to be cut, with what is known of its ZIP code.
struct CutQuestion {
  Words All() const;  // the delivery line and the city in one
  Words Street() const;
  Words City() const;

  // Of a street with a box on the line below only the box is left (USPS Publication 28, section
  // 215). Returns false where what is in front is not a street. Sets `words` and `boundary`.
  bool SetStreetAbove();

  // Joins a number and its letter that came apart, where a base knows both as one. `reader` may be
  // null.
  void TakeLetter(JoinedReader* reader);

  std::string above;                // lines set above
  std::vector<SentLine> lines;      // of the delivery line; at least one
  std::vector<SentLine> cityLines;  // the last of them is the city
  std::string state;
  std::string zip5;
  std::vector<std::string> names;  // of the ZIP code
  Words words;                     // all
  size_t boundary = 0;             // the first word of the city as it was sent
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_CUT_CUTQUESTION_H_
