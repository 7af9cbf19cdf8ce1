#ifndef POSTWRIGHT_TESTS_SUPPORT_FIXRESULTPRINTER_H_
#define POSTWRIGHT_TESTS_SUPPORT_FIXRESULTPRINTER_H_

#include <postwright/FixResult.h>

#include <ostream>

namespace postwright {

// Lets a failing test show a name.
inline void PrintTo(FixResult result, std::ostream* stream) {
  switch (result) {
    case FixResultNone:
      *stream << "no failure";
      break;
    case FixResultBadReply:
      *stream << "FixResultBadReply";
      break;
    case FixResultInvalidAddress:
      *stream << "FixResultInvalidAddress";
      break;
    case FixResultDefaultMatch:
      *stream << "FixResultDefaultMatch";
      break;
    default:
      *stream << "FixResult " << static_cast<int>(result);
  }
}

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_SUPPORT_FIXRESULTPRINTER_H_
