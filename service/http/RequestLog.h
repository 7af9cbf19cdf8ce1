#ifndef POSTWRIGHT_SERVICE_HTTP_REQUESTLOG_H_
#define POSTWRIGHT_SERVICE_HTTP_REQUESTLOG_H_

#include <mutex>
#include <string>
#include <string_view>

namespace postwright::service {

// Writes lines to a descriptor, each whole and in one write, and never waits for its reader: a line
// that does not fit into a full pipe is left out, and the next one that fits says how many were.
// So a log that nobody reads cannot hold up the service.
//
//   RequestLog log(STDERR_FILENO, "postwright-verifyd: ");
//   log.Write("listening on 127.0.0.1:8470");
//
// Any thread may write.
class RequestLog {
 public:
  static constexpr size_t kLongestLine = 4000;  // bytes, below PIPE_BUF

  // `descriptor` is borrowed; `prefix` begins every line.
  RequestLog(int descriptor, std::string prefix);

  // Writes a line without its end. Control characters are shown as `?`; what is beyond kLongestLine
  // is cut off.
  void Write(std::string_view line);

 private:
  bool CanWrite() const;
  void WriteWhole(std::string_view line) const;

  const int descriptor_;
  const std::string prefix_;
  std::mutex mutex_;
  size_t leftOut_ = 0;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_HTTP_REQUESTLOG_H_
