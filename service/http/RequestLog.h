#ifndef POSTWRIGHT_SERVICE_HTTP_REQUESTLOG_H_
#define POSTWRIGHT_SERVICE_HTTP_REQUESTLOG_H_

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace postwright::service {

// Writes lines to a descriptor, and never lets a caller wait for its reader: a thread of its own
// writes what has been gathered, several lines at once. A log that nobody reads cannot hold up the
// service: lines beyond kMostWaiting bytes are left out, and the next one says how many were.
//
//   RequestLog log(STDERR_FILENO, "postwright-verifyd: ");
//   log.Write("listening on 127.0.0.1:8470");
//
// Any thread may write.
class RequestLog {
 public:
  static constexpr size_t kLongestLine = 4000;  // bytes, below PIPE_BUF
  static constexpr size_t kMostWaiting = 1024 * 1024;

  // `descriptor` is borrowed, a negative one takes nothing; `prefix` begins every line.
  RequestLog(int descriptor, std::string prefix);

  // Writes what waits; a reader that sleeps has half a second for it.
  ~RequestLog();
  RequestLog(const RequestLog&) = delete;
  RequestLog& operator=(const RequestLog&) = delete;

  // Writes a line without its end, within some hundredths of a second. What could move a
  // terminal's cursor or turn text round is shown as `?` (ShownText); what is beyond kLongestLine
  // is cut off.
  void Write(std::string_view line);

 private:
  void Append(std::string_view line);  // under mutex_
  void Run();
  bool WriteLines(std::string_view lines) const;
  bool AwaitRoom() const;

  const int descriptor_;
  const std::string prefix_;
  std::mutex mutex_;
  std::condition_variable wake_;
  std::string waiting_;  // whole lines
  size_t leftOut_ = 0;
  std::atomic<bool> isEnding_ = false;
  std::thread thread_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_HTTP_REQUESTLOG_H_
