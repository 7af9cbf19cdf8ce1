#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_OWNWORKER_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_OWNWORKER_H_

#include <optional>

#include "apps/postwright/stream/LineWorkers.h"
#include "apps/postwright/stream/RunClock.h"

namespace postwright {

// This process as the one worker: a line is answered while it is waited for.
class OwnWorker final : public LineWorkers {
 public:
  // Borrows both.
  OwnWorker(const LineAnswer& answer, RunClock& clock) : answer_(answer), clock_(clock) {}

  bool HasRoom() override { return !ticket_; }
  void Give(std::size_t ticket, const LabelLine& label, std::string_view line) override;
  Events Wait(int descriptor, int milliseconds) override;

 private:
  const LineAnswer& answer_;
  RunClock& clock_;
  std::optional<std::size_t> ticket_;
  LabelLine label_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_OWNWORKER_H_
