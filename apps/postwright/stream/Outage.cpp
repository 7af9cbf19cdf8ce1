#include "apps/postwright/stream/Outage.h"

#include <algorithm>

namespace postwright {

void Outage::Miss(bool counts, std::chrono::seconds retryAfter) {
  if (retryAfter.count() > 0) {
    PutOff(retryAfter);
    return;
  }
  if (isOn_ || !counts) {
    return;  // it was under way when the outage began
  }
  if (++inARow_ == 1) {
    silentSince_ = clock_.Now();
  }
  if (inARow_ >= kInARow) {
    Begin();
    isAnnounced_ = false;
    Pause();
  }
}

void Outage::MissProbe(std::chrono::seconds retryAfter) {
  if (retryAfter.count() > 0) {
    PutOff(retryAfter);
    return;
  }
  isAnnounced_ = false;
  isHopeless_ = clock_.Now() - silentSince_ >= giveUpAfter_;
  Pause();
}

bool Outage::Answer() {
  inARow_ = 0;
  isOn_ = IsPutOff();
  return !isOn_;
}

std::chrono::seconds Outage::Length() const {
  return std::chrono::duration_cast<std::chrono::seconds>(clock_.Now() - begun_);
}

void Outage::Begin() {
  if (!isOn_) {
    isOn_ = true;
    begun_ = clock_.Now();
    pause_ = std::chrono::seconds(0);
  }
}

// The service is there, and silent only from the end of its own time on.
void Outage::PutOff(std::chrono::seconds retryAfter) {
  const RunClock::Time until = clock_.Now() + retryAfter;
  nextTry_ = IsPutOff() ? std::max(nextTry_, until) : until;
  Begin();
  isAnnounced_ = true;
  silentSince_ = nextTry_;
  pause_ = std::chrono::seconds(0);
  inARow_ = 0;
}

// The last try is made when the time is up, and not long before.
void Outage::Pause() {
  pause_ = std::clamp(2 * pause_, kFirstPause, kLongestPause);
  const RunClock::Time now = clock_.Now();
  nextTry_ = std::min(now + pause_, std::max(now, silentSince_ + giveUpAfter_));
}

}  // namespace postwright
