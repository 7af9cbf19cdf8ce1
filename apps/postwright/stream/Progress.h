#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_PROGRESS_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_PROGRESS_H_

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace postwright {

// A length of time in words: "45 s", "10 min", "12 h".
std::string InWords(std::chrono::seconds length);

// How far a stream of fixes has come, in one line on standard error that is written again and
// again, some times a second, where that is a terminal that can do so (TERM is neither unset nor
// "dumb"); and the messages that must not run into that line.
//
//   Progress progress(!options.quiet);
//   progress.Begin(reader.CountLinesAhead());
//   progress.Count(record);
//   progress.Refresh();  // "7 of 90: 5 fixed, 1 unchanged, 1 turned down, about 2 min left"
//   progress.Finish();
//
// Without Finish the line is ended where it stands, by the destructor or a signal.
class Progress {
 public:
  // How often the line is brought up to date at most, for callers that wait.
  static constexpr std::chrono::milliseconds kPeriod{200};

  explicit Progress(bool isWanted);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // Whether there is a line at all.
  bool IsShown() const { return isShown_; }

  // The work begins, of `total` labels where that is known.
  void Begin(std::optional<std::size_t> total);

  // Counts a record by its status, to be shown with the next Refresh; an `earlier` one was there
  // before this run, and says nothing of how fast it is.
  void Count(std::string_view record, bool isEarlier = false);

  // Brings the line up to date where it is old enough.
  void Refresh();

  // From now on the line says that the service is waited for, and for how long it has been, in the
  // place of the time that is left; nothing: it is not.
  void ShowWaiting(std::optional<std::chrono::seconds> length) { waiting_ = length; }

  // Says that the service is waited for: once because it is silent, and once because it has said
  // that it wants to be asked `retryAfter` later, where that is not 0.
  void SayWaiting(const std::string& why, std::chrono::seconds retryAfter,
                  std::chrono::seconds giveUpAfter);

  // Takes the line away before records go to standard output, where that is the same terminal.
  void MakeWay();

  // Writes "postwright: " and `message` on a line of its own, with or without a terminal.
  void Say(const std::string& message);

  // The last state stays to be read. Everything is done; or, Stop, not everything.
  void Finish();
  void Stop();

 private:
  using Clock = std::chrono::steady_clock;

  std::size_t Done() const { return fixed_ + unchanged_ + turnedDown_ + unanswered_; }
  void Draw();
  std::string Line() const;
  std::string TimeLeft() const;

  bool isShown_;
  bool sharesTerminal_;
  std::optional<std::size_t> total_;
  std::size_t fixed_ = 0;
  std::size_t unchanged_ = 0;
  std::size_t turnedDown_ = 0;
  std::size_t unanswered_ = 0;
  std::size_t earlier_ = 0;
  Clock::time_point begun_;
  Clock::time_point drawn_;
  std::optional<std::chrono::seconds> waiting_;
  bool hasSaidSilent_ = false;
  bool hasSaidPutOff_ = false;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_PROGRESS_H_
