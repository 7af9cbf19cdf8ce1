#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_FAILURE_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_FAILURE_H_

#include <stdexcept>
#include <string>

namespace postwright {

// How the command ended. Scripts branch on these: they never change their meaning.
enum ExitStatus : int {
  kExitDone = 0,
  kExitNotALabel = 1,    // a text held no address, was not a label, or could not be fixed
  kExitFailed = 2,       // wrong usage, or input or output that cannot be read or written
  kExitDoubtful = 3,     // the correction of a text is for a person to decide
  kExitOutage = 75,      // the service gave no answer for too long; EX_TEMPFAIL of sysexits(3)
  kExitClosedPipe = 141  // the reader of the output went away; what a shell says for SIGPIPE
};

// Ends the command; the text says what could not be done, to what, and why or what to do.
class Failure : public std::runtime_error {
 public:
  explicit Failure(const std::string& text, ExitStatus status = kExitFailed)
      : std::runtime_error(text), status_(status) {}

  ExitStatus Status() const { return status_; }

 private:
  ExitStatus status_;
};

// Ends the command with kExitClosedPipe and without a word.
class ClosedPipe {};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_FAILURE_H_
