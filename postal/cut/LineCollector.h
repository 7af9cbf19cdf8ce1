#ifndef POSTWRIGHT_POSTAL_CUT_LINECOLLECTOR_H_
#define POSTWRIGHT_POSTAL_CUT_LINECOLLECTOR_H_

#include <string>

#include "common/AsciiText.h"
#include "postal/cut/SentLines.h"

namespace postwright::postal {

// Puts the lines of one address together: the delivery line, and what is set above it.
class LineCollector {
 public:
  // `above` are lines set above already, separated by line feeds.
  LineCollector(Words street, std::string above)
      : street_(std::move(street)), above_(std::move(above)) {}

  // Adds the next line. Returns false where that would be a guess; the collector is of no use then.
  bool Add(const SentLine& line, LinePlace place);

  const Words& Street() const { return street_; }
  const std::string& Above() const { return above_; }

 private:
  Words street_;
  std::string above_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_CUT_LINECOLLECTOR_H_
