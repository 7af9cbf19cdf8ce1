#ifndef POSTWRIGHT_APPS_POSTWRIGHT_INPUTBYTES_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_INPUTBYTES_H_

#include <cstddef>
#include <string>

namespace postwright {

// A whole file or standard input in memory, read as far as the reader cares to go.
//
//   InputBytes input("list.csv");
//   input.ReadTo(limit);
//   if (input.IsWhole()) Use(input.Bytes());
class InputBytes {
 public:
  // Opens the file `name`; "-" is standard input. Throws Failure where it cannot be opened.
  explicit InputBytes(const std::string& name);
  ~InputBytes();
  InputBytes(const InputBytes&) = delete;
  InputBytes& operator=(const InputBytes&) = delete;

  // What is read, for messages: the file's name or "standard input".
  const std::string& Name() const { return name_; }

  // Reads on until the input ends or more than `limit` bytes are held. Throws Failure where the
  // system cannot read.
  void ReadTo(std::size_t limit);

  // Whether the end has been reached.
  bool IsWhole() const { return isWhole_; }

  // What has been read, byte-order mark and all.
  const std::string& Bytes() const { return bytes_; }

 private:
  [[noreturn]] void Fail() const;

  std::string name_;
  int descriptor_;
  std::string bytes_;
  bool isWhole_ = false;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_INPUTBYTES_H_
