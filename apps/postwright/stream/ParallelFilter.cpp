#include "apps/postwright/stream/ParallelFilter.h"

#include <utility>

namespace postwright {

namespace {

// Enough that one slow answer does not keep the workers waiting.
constexpr std::size_t kMostLines = 4096;
constexpr std::size_t kMostBytes = std::size_t{64} << 20U;

}  // namespace

void ParallelFilter::Run() {
  while (!isEnded_ || !entries_.empty()) {
    TakeLabels();
    WriteKnown();
    if (!entries_.empty() || !isEnded_) {
      WaitForAnswers();
      WriteKnown();
    }
  }
}

bool ParallelFilter::MayTakeMore() const {
  return !isEnded_ && entries_.size() < kMostLines && bytes_ < kMostBytes;
}

void ParallelFilter::TakeLabels() {
  while (MayTakeMore() && labels_.Reader().IsLineAtHand() && pool_.HasRoom()) {
    if (labels_.Next()) {
      Take();
    } else {
      isEnded_ = true;
    }
  }
}

void ParallelFilter::Take() {
  const LabelLine& label = labels_.Label();
  const std::string_view line = labels_.Reader().Line();
  const std::size_t ticket = first_ + entries_.size();
  entries_.push_back({label, "", line.size()});
  bytes_ += line.size();
  if (label.problem.empty()) {
    pool_.Give(ticket, line);
  } else {
    Know(ticket, answer_(label));
  }
}

void ParallelFilter::WaitForAnswers() {
  const bool wantsInput = MayTakeMore() && !labels_.Reader().IsLineAtHand() && pool_.HasRoom();
  const int period = progress_.IsShown() ? static_cast<int>(Progress::kPeriod.count()) : -1;
  const WorkerPool::Events events =
      pool_.Wait(wantsInput ? labels_.Reader().Descriptor() : -1, period);
  if (events.isReadable) {
    labels_.Reader().ReadSome();
  }
  for (const WorkerPool::Answer& answer : events.answers) {
    const LabelLine& label = entries_[answer.ticket - first_].label;
    Know(answer.ticket, answer.line.empty() ? answerForDead_(label, answer.ending) : answer.line);
  }
  progress_.Refresh();
}

void ParallelFilter::Know(std::size_t ticket, std::string record) {
  Entry& entry = entries_[ticket - first_];
  bytes_ += record.size() - entry.bytes;
  entry = {{}, std::move(record), 0};
  entry.bytes = entry.record.size();
}

void ParallelFilter::WriteKnown() {
  if (entries_.empty() || entries_.front().record.empty()) {
    return;
  }
  while (!entries_.empty() && !entries_.front().record.empty()) {
    const Entry& entry = entries_.front();
    output_.Write(entry.record);
    progress_.Count(entry.record);
    bytes_ -= entry.bytes;
    entries_.pop_front();
    ++first_;
  }
  progress_.MakeWay();
  output_.Flush();
  progress_.Refresh();
}

}  // namespace postwright
