#ifndef POSTWRIGHT_CORE_ENGINE_POSTWRIGHTEXCEPTION_H_
#define POSTWRIGHT_CORE_ENGINE_POSTWRIGHTEXCEPTION_H_

#include <postwright/Export.h>
#include <postwright/FixResult.h>

namespace postwright {

// Thrown, by value, by every fix that fails. It says how the fix ended and nothing else: the words
// for the user are the client's. It has no base class, so that a host's handler for std::exception
// does not take a turned-down address for a fault of the program.
//
//   catch (const PostwrightException& failure) { Explain(failure.GetResult()); }
class POSTWRIGHT_CORE_EXPORT PostwrightException {
 public:
  explicit PostwrightException(FixResult result) : result_(result) {}

  FixResult GetResult() const { return result_; }

 private:
  FixResult result_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_ENGINE_POSTWRIGHTEXCEPTION_H_
