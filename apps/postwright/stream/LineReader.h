#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINEREADER_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINEREADER_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace postwright {

// Reads a file or standard input line by line, with a bound on what it holds.
//
//   LineReader reader("labels.jsonl");
//   while (reader.Next()) Use(reader.Line());
//
// A byte-order mark at the start is dropped. Every operation that reads throws Failure where the
// system cannot read. One thread.
class LineReader {
 public:
  // The longest line, in bytes; a label can be no longer either.
  static constexpr std::size_t kLimit = std::size_t{16} << 20U;

  // Readable bytes after every line, for readers that look ahead.
  static constexpr std::size_t kPadding = 64;

  // Opens the file `name`; "-" is standard input. Throws Failure where it cannot be opened.
  explicit LineReader(const std::string& name);

  // Reads the open file `descriptor`, which stays the caller's; `name` is for messages.
  LineReader(int descriptor, std::string name);

  ~LineReader();
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;

  // What is read, for messages: the file's name or "standard input".
  const std::string& Name() const { return name_; }

  // Goes to the next line, waiting for input where none has arrived. False at the end. A last line
  // without a line feed is a line; input without a byte has none.
  bool Next();

  // The line without its line feed, until the next call of Next. Empty where IsTooLong.
  std::string_view Line() const { return line_; }

  // Whether the line had more than kLimit bytes: it was passed over, and never held whole.
  bool IsTooLong() const { return isTooLong_; }

  // Whether it ended in a line feed; only the last line may not.
  bool IsWhole() const { return isWhole_; }

  // Its number, from 1.
  std::size_t Number() const { return number_; }

  // Whether Next will return without waiting for input.
  bool IsLineAtHand() const;

  // For a caller that waits for several things at once: where the input comes from, and one read
  // of it, which does not wait once the system finds the descriptor readable.
  int Descriptor() const { return descriptor_; }
  void ReadSome();

  // How many lines there are from here to the end, before the first was read; nothing where the
  // input is not a plain file and so cannot be read twice.
  std::optional<std::size_t> CountLinesAhead() const;

 private:
  bool Fill();
  void TakeLine(std::size_t length, bool isWhole);
  void DropMark();

  std::string name_;
  int descriptor_;
  bool isOwned_;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;    // the first byte not handed out
  std::size_t scanned_ = 0;  // there is no line feed in [begin_, scanned_)
  std::size_t end_ = 0;      // after the last byte read
  bool isStarted_ = false;
  bool isEnded_ = false;
  bool isPassingOver_ = false;  // what was read of the coming line is beyond the limit, and gone
  bool isTooLong_ = false;
  bool isWhole_ = false;
  std::size_t number_ = 0;
  std::string_view line_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LINEREADER_H_
