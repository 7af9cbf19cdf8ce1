#include "apps/postwright/stream/Progress.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cmath>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <utility>

#include "apps/postwright/stream/EndingSignals.h"
#include "apps/postwright/stream/JsonRecord.h"

namespace postwright {

namespace {

const std::string kEraseLine = "\r\033[K";
constexpr std::chrono::seconds kBeforeEstimate{2};

// Whether the cursor stands after the line, for the signal handler.
volatile std::sig_atomic_t gIsDrawn = 0;

void EndLine() {
  if (gIsDrawn != 0) {
    [[maybe_unused]] const ssize_t count = write(STDERR_FILENO, "\n", 1);
  }
}

bool CanEraseLines() {
  const char* const terminal = std::getenv("TERM");
  return terminal != nullptr && *terminal != '\0' && std::strcmp(terminal, "dumb") != 0;
}

// Past std::cerr, which lets no control character through to a terminal.
void Put(const std::string& text) {
  [[maybe_unused]] const ssize_t count = write(STDERR_FILENO, text.data(), text.size());
}

// A line that the terminal wraps could not be written over.
std::size_t TerminalWidth() {
  winsize size{};
  return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 1 ? size.ws_col - 1 : 79;
}

}  // namespace

std::string InWords(std::chrono::seconds length) {
  const auto seconds = length.count();
  return seconds % 3600 == 0 ? std::to_string(seconds / 3600) + " h"
         : seconds % 60 == 0 ? std::to_string(seconds / 60) + " min"
                             : std::to_string(seconds) + " s";
}

Progress::Progress(bool isWanted)
    : isShown_(isWanted && isatty(STDERR_FILENO) == 1 && CanEraseLines()),
      sharesTerminal_(isShown_ && isatty(STDOUT_FILENO) == 1) {
  if (isShown_) {
    BeforeEndingBySignal(EndLine);
  }
}

Progress::~Progress() {
  EndLine();
  gIsDrawn = 0;
}

void Progress::Begin(std::optional<std::size_t> total) {
  total_ = total;
  begun_ = Clock::now();
  if (isShown_) {
    Draw();
  }
}

void Progress::Count(std::string_view record, bool isEarlier) {
  const std::optional<FixStatus> status = StatusOfRecord(record);
  ++(status == FixStatus::kUnchanged    ? unchanged_
     : status == FixStatus::kFixed      ? fixed_
     : status == FixStatus::kUnanswered ? unanswered_
                                        : turnedDown_);
  earlier_ += isEarlier ? 1 : 0;
}

void Progress::Refresh() {
  if (isShown_ && Clock::now() - drawn_ >= kPeriod) {
    Draw();
  }
}

void Progress::SayWaiting(const std::string& why, std::chrono::seconds retryAfter,
                          std::chrono::seconds giveUpAfter) {
  const bool isPutOff = retryAfter.count() > 0;
  if (std::exchange(isPutOff ? hasSaidPutOff_ : hasSaidSilent_, true)) {
    return;
  }
  Say(why + (isPutOff ? " Waiting until the service may be asked again, " + InWords(retryAfter) +
                            " from now."
                      : " Waiting for the service, " + InWords(giveUpAfter) + " at most."));
}

void Progress::MakeWay() {
  if (sharesTerminal_ && gIsDrawn != 0) {
    Put(kEraseLine);
    gIsDrawn = 0;
  }
}

void Progress::Say(const std::string& message) {
  if (gIsDrawn != 0) {
    Put(kEraseLine);
    gIsDrawn = 0;
    drawn_ = {};  // a message is rare: the line comes back at once
  }
  std::cerr << "postwright: " << message << '\n';
}

void Progress::Finish() {
  if (total_) {
    total_ = Done();  // the input may have grown or shrunk since it was counted
  }
  Stop();
}

void Progress::Stop() {
  if (isShown_) {
    waiting_ = std::nullopt;
    Draw();
    EndLine();
    gIsDrawn = 0;
    isShown_ = false;
  }
}

void Progress::Draw() {
  Put(kEraseLine + Line().substr(0, TerminalWidth()));
  gIsDrawn = 1;
  drawn_ = Clock::now();
}

std::string Progress::Line() const {
  return std::to_string(Done()) + (total_ ? " of " + std::to_string(*total_) : " done") + ": " +
         std::to_string(fixed_) + " fixed, " + std::to_string(unchanged_) + " unchanged, " +
         std::to_string(turnedDown_) + " turned down" +
         (unanswered_ == 0 ? "" : ", " + std::to_string(unanswered_) + " not answered") +
         (waiting_ ? ", waiting for the service, " + std::to_string(waiting_->count()) + " s"
                   : TimeLeft());
}

std::string Progress::TimeLeft() const {
  const std::size_t done = Done();
  const Clock::duration time = Clock::now() - begun_;
  if (!total_ || done == earlier_ || done >= *total_ || time < kBeforeEstimate) {
    return "";
  }
  const double minutes = std::chrono::duration<double, std::ratio<60>>(time).count();
  const double speed = static_cast<double>(done - earlier_) / minutes;
  const double left = static_cast<double>(*total_ - done) / speed;
  return left < 1 ? ", less than a minute left"
                  : ", about " + std::to_string(std::lround(left)) + " min left";
}

}  // namespace postwright
