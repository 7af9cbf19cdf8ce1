#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_OUTAGE_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_OUTAGE_H_

#include <chrono>

#include "apps/postwright/stream/RunClock.h"

namespace postwright {

// Whether the service is away, when it is asked again, and when it is no longer waited for. Three
// questions in a row without an answer begin an outage, and so does one that the service puts off
// until later; an answer ends it.
//
//   Outage outage(clock, std::chrono::minutes(10));
//   outage.Miss(true, retryAfter);
//   while (outage.IsOn() && !outage.IsHopeless()) { sleep until outage.NextTry(); ask; … }
class Outage {
 public:
  static constexpr int kInARow = 3;
  static constexpr std::chrono::seconds kFirstPause{1};  // doubled with each further one
  static constexpr std::chrono::seconds kLongestPause{60};

  // Borrows the clock. A service that gives no answer for `giveUpAfter` is hopeless.
  Outage(const RunClock& clock, std::chrono::seconds giveUpAfter)
      : clock_(clock), giveUpAfter_(giveUpAfter) {}

  // A question had no answer. `counts`: in the row that begins an outage. `retryAfter` is how long
  // the service wants to be left alone, 0 where it says nothing.
  void Miss(bool counts, std::chrono::seconds retryAfter);

  // So had one that was put at NextTry() to see whether the service is back.
  void MissProbe(std::chrono::seconds retryAfter);

  // A question was answered. True where there is no outage now: what the service has put off until
  // later stays so, since it may answer other questions meanwhile.
  bool Answer();

  // Nothing is left to be asked.
  void End() { isOn_ = false; }

  bool IsOn() const { return isOn_; }
  bool IsAnnounced() const { return isAnnounced_; }  // the service has said how long
  bool IsHopeless() const { return isHopeless_; }
  RunClock::Time NextTry() const { return nextTry_; }
  std::chrono::seconds GiveUpAfter() const { return giveUpAfter_; }

  // How long it has lasted; while it is on.
  std::chrono::seconds Length() const;

 private:
  bool IsPutOff() const { return isOn_ && isAnnounced_ && clock_.Now() < nextTry_; }
  void Begin();
  void PutOff(std::chrono::seconds retryAfter);
  void Pause();

  const RunClock& clock_;
  const std::chrono::seconds giveUpAfter_;
  int inARow_ = 0;
  bool isOn_ = false;
  bool isAnnounced_ = false;
  bool isHopeless_ = false;
  std::chrono::seconds pause_{0};  // the last one
  RunClock::Time begun_;
  RunClock::Time silentSince_;  // with no sign of life, and no wait that was announced
  RunClock::Time nextTry_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_OUTAGE_H_
