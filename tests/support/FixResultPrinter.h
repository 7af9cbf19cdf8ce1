#ifndef POSTWRIGHT_TESTS_SUPPORT_FIXRESULTPRINTER_H_
#define POSTWRIGHT_TESTS_SUPPORT_FIXRESULTPRINTER_H_

#include <postwright/FixResult.h>

#include <ostream>

namespace postwright {

// Lets a failing test show the names of the engine's outcomes.
inline void PrintTo(FixResult result, std::ostream* stream) {
  *stream << (result == FixResultBadReply         ? "FixResultBadReply "
              : result == FixResultInvalidAddress ? "FixResultInvalidAddress "
              : result == FixResultDefaultMatch   ? "FixResultDefaultMatch "
                                                  : "FixResult ")
          << static_cast<int>(result);
}

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_SUPPORT_FIXRESULTPRINTER_H_
