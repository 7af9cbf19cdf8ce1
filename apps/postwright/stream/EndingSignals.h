#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_ENDINGSIGNALS_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_ENDINGSIGNALS_H_

#include <csignal>

namespace postwright {

// What is put in order when SIGHUP, SIGINT or SIGTERM ends the process. One thread.

// Has `action` done before one of the three signals ends the process, the latest action first; the
// same action counts once. It runs in the signal's handler and may call what is safe there alone
// (signal-safety(7)). A signal that is ignored, as nohup has it, stays ignored. Four actions at
// most.
void BeforeEndingBySignal(void (*action)());

// Keeps the three signals waiting for as long as the object lives.
class EndingSignalsHeld {
 public:
  EndingSignalsHeld();
  ~EndingSignalsHeld();
  EndingSignalsHeld(const EndingSignalsHeld&) = delete;
  EndingSignalsHeld& operator=(const EndingSignalsHeld&) = delete;

 private:
  sigset_t before_;
};

// Ignores the three signals from now on: a child process that its parent ends.
void IgnoreEndingSignals();

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_ENDINGSIGNALS_H_
