#include "apps/postwright/stream/PatientFilter.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>
#include <utility>

namespace postwright {

namespace {

// Enough that one slow answer does not keep the workers waiting.
constexpr std::size_t kMostLines = 4096;
constexpr std::size_t kMostBytes = std::size_t{64} << 20U;

constexpr int kMostMisses = 2;  // without an answer so often while others had one: it has none

}  // namespace

bool PatientFilter::Do() {
  while (!IsDone()) {
    Ask();
    WriteKnown();
    if (!IsDone()) {
      WaitForEvents();
    }
    if (run_.outage.IsHopeless()) {
      GiveUp();
      return false;
    }
  }
  return true;
}

bool PatientFilter::MayTakeMore() const {
  return !isEnded_ && entries_.size() < kMostLines && bytes_ < kMostBytes;
}

void PatientFilter::Ask() {
  if (run_.outage.IsOn()) {
    Probe();
    return;
  }
  while (!due_.empty() && run_.workers.HasRoom()) {
    Give(due_.extract(due_.begin()).value());
  }
  TakeLines();
  SettleWhereIdle();
}

void PatientFilter::Probe() {
  if (asked_ > 0 || run_.clock.Now() < run_.outage.NextTry() || !run_.workers.HasRoom()) {
    return;
  }
  if (turn_ >= held_.size()) {
    turn_ = 0;
    isProbing_ = ProbeNewLine();
  }
  if (!isProbing_ && !held_.empty()) {
    isProbing_ = true;
    Give(held_.extract(std::next(held_.begin(), static_cast<std::ptrdiff_t>(turn_++))).value());
  }
  if (!isProbing_) {
    run_.outage.End();
    Ask();
  }
}

// False where none has arrived.
bool PatientFilter::ProbeNewLine() {
  while (MayTakeMore() && lines_.IsAtHand()) {
    if (Take()) {
      return true;
    }
  }
  return false;
}

void PatientFilter::TakeLines() {
  while (MayTakeMore() && lines_.IsAtHand() && run_.workers.HasRoom()) {
    Take();
  }
}

// Takes a line, or the end. True where a worker has it now.
bool PatientFilter::Take() {
  if (!lines_.Next()) {
    isEnded_ = true;
    return false;
  }
  const LabelLine& label = lines_.Label();
  const std::string_view line = lines_.Line();
  const std::size_t ticket = first_ + entries_.size();
  entries_.push_back({label, std::string(line)});
  entries_.back().bytes = line.size();
  bytes_ += line.size();
  if (const std::string_view record = lines_.Record(); !record.empty()) {
    entries_.back().isCopied = true;
    Know(ticket, std::string(record));
  } else if (!label.problem.empty()) {
    Know(ticket, run_.answer(label).line);
  } else {
    Give(ticket);
    return true;
  }
  return false;
}

void PatientFilter::Give(std::size_t ticket) {
  run_.workers.Give(ticket, At(ticket).label, At(ticket).line);
  ++asked_;
}

// Where nothing can be asked but what had no answer, there will be no other answer to wait for.
void PatientFilter::SettleWhereIdle() {
  if (asked_ == 0 && due_.empty() && !held_.empty() && !(MayTakeMore() && lines_.IsAtHand())) {
    SettleHeld();
    Ask();
  }
}

void PatientFilter::WaitForEvents() {
  const bool wantsInput =
      !run_.outage.IsOn() && MayTakeMore() && !lines_.IsAtHand() && run_.workers.HasRoom();
  const LineWorkers::Events events =
      run_.workers.Wait(wantsInput ? lines_.Descriptor() : -1, LongestWait(wantsInput));
  if (events.isReadable) {
    lines_.ReadSome();
  }
  for (const LineWorkers::Answer& answer : events.answers) {
    Note(answer);
  }
  run_.progress.ShowWaiting(run_.outage.IsOn() ? std::optional(run_.outage.Length())
                                               : std::nullopt);
  run_.progress.Refresh();
}

// In milliseconds; -1: for ever.
int PatientFilter::LongestWait(bool wantsInput) const {
  const std::int64_t period = run_.progress.IsShown() ? Progress::kPeriod.count() : -1;
  if (asked_ > 0 || wantsInput) {
    return static_cast<int>(period);
  }
  if (!run_.outage.IsOn()) {
    return 0;  // there is something to do
  }
  const std::int64_t pause =
      std::chrono::ceil<std::chrono::milliseconds>(run_.outage.NextTry() - run_.clock.Now())
          .count();
  return static_cast<int>(
      std::clamp<std::int64_t>(pause, 0, period == -1 ? std::numeric_limits<int>::max() : period));
}

void PatientFilter::Note(const LineWorkers::Answer& answer) {
  --asked_;
  const LineRecord& record = answer.record;
  if (record.heard == Heard::kNoAnswer) {
    Miss(answer.ticket, record);
    return;
  }
  isProbing_ = false;
  Know(answer.ticket, record.line.empty()
                          ? run_.answerForDead(At(answer.ticket).label, answer.ending)
                          : record.line);
  const bool wasOn = run_.outage.IsOn();
  if (record.heard == Heard::kAnswer && run_.outage.Answer()) {
    if (wasOn) {  // it was not theirs alone
      std::for_each(held_.begin(), held_.end(), [this](auto held) { At(held).misses = 1; });
    }
    SettleHeld();
  }
}

void PatientFilter::Miss(std::size_t ticket, const LineRecord& record) {
  Entry& entry = At(ticket);
  const bool wasOn = run_.outage.IsOn();
  if (std::exchange(isProbing_, false)) {
    run_.outage.MissProbe(record.retryAfter);
  } else {
    run_.outage.Miss(entry.misses == 0, record.retryAfter);
  }
  entry.misses += record.retryAfter.count() > 0 ? 0 : 1;
  entry.record = record.line;
  held_.insert(ticket);
  if (run_.outage.IsOn() && (!wasOn || record.retryAfter.count() > 0)) {
    run_.progress.SayWaiting(record.why, record.retryAfter, run_.outage.GiveUpAfter());
  }
}

// The service is there: what it has left without an answer twice now has none, and the rest is
// asked about again.
void PatientFilter::SettleHeld() {
  for (const std::size_t ticket : std::exchange(held_, {})) {
    if (At(ticket).misses >= kMostMisses) {
      Know(ticket, std::move(At(ticket).record));
    } else {
      due_.insert(ticket);
    }
  }
  turn_ = 0;
}

void PatientFilter::Know(std::size_t ticket, std::string record) {
  Entry& entry = At(ticket);
  bytes_ += record.size() - entry.bytes;
  const bool isCopied = entry.isCopied;
  entry = {};
  entry.bytes = record.size();
  entry.record = std::move(record);
  entry.isKnown = true;
  entry.isCopied = isCopied;
}

void PatientFilter::WriteKnown() {
  if (entries_.empty() || !entries_.front().isKnown) {
    return;
  }
  while (!entries_.empty() && entries_.front().isKnown) {
    const Entry& entry = entries_.front();
    output_.Write(entry.record);
    if (!entry.isCopied) {
      run_.progress.Count(entry.record);
    }
    bytes_ -= entry.bytes;
    entries_.pop_front();
    ++first_;
  }
  run_.progress.MakeWay();
  output_.Flush();
  run_.progress.Refresh();
}

void PatientFilter::GiveUp() {
  for (const std::size_t ticket : held_) {
    Know(ticket, std::move(At(ticket).record));
  }
  WriteKnown();
}

}  // namespace postwright
