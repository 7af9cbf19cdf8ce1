#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_OUTPUT_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_OUTPUT_H_

#include <string>
#include <string_view>

namespace postwright {

// What a command writes: to standard output, or to a file that appears whole or not at all.
//
//   Output output(path);          // "" or "-" is standard output
//   output.Write("a line\n");
//   output.Finish();
//
// A file is written beside its final name under a name of its own; Finish synchronises it and
// gives it the final name, in place of a file that stood there, whose permissions, access list and,
// where the system allows it, owner and group it has. A link's target is written, also where it is
// not there yet. What a run that was killed has left beside the same file is removed. On a terminal
// control characters are replaced (ForTerminal). Without Finish (an exception, or SIGINT, SIGTERM,
// SIGHUP) what was written is removed and the older file stays as it was.
//
// Every operation throws Failure where the system cannot write, and ClosedPipe where nobody reads
// any more (SIGPIPE must be ignored). At most one Output to a file in a process.
class Output {
 public:
  // Throws Failure where the file cannot be created, or where `path` is there and no plain file or
  // may not be written.
  explicit Output(const std::string& path);

  // Writes on at the end of an open file, which keeps what it has been given whatever happens.
  // `descriptor` stays the caller's; `name` is for messages.
  Output(int descriptor, const std::string& name);

  ~Output();
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  // Takes `text`, which reaches the reader at the latest with the next Flush.
  void Write(std::string_view text);

  // Hands over everything taken so far.
  void Flush();

  // Hands over the rest; a file takes its name. Nothing may be written afterwards.
  void Finish();

  // The same for a run that did not come to its end: hands over the rest, and leaves a file under a
  // name of its own beside the final one, which it returns; "" for standard output and for an open
  // file.
  std::string Keep();

 private:
  [[noreturn]] void Fail(const std::string& what) const;
  void CreateBeside();

  std::string path_;       // the final name, links resolved; empty for standard output
  std::string temporary_;  // the name while it is written; empty for none
  int descriptor_;
  std::string pending_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_OUTPUT_H_
