#include "apps/TerminalText.h"

#include <unistd.h>

#include <boost/locale/utf.hpp>
#include <iostream>
#include <sstream>

namespace postwright {

namespace {

namespace utf = boost::locale::utf;

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

bool IsControl(utf::code_point c) {
  return (c < 0x20 && c != '\n' && c != '\t') || (c >= 0x7F && c < 0xA0);
}

bool ChangesDirection(utf::code_point c) {
  return c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) ||
         (c >= 0x2066 && c <= 0x2069);
}

}  // namespace

std::string ForTerminal(std::string_view text) {
  std::string shown;
  while (!text.empty()) {
    const char* end = text.data();
    const utf::code_point c = utf::utf_traits<char>::decode(end, text.data() + text.size());
    const bool isCharacter = c != utf::illegal && c != utf::incomplete;
    const std::size_t length = isCharacter ? end - text.data() : 1;
    const bool isShown = isCharacter && !IsControl(c) && !ChangesDirection(c);
    shown += isShown ? text.substr(0, length) : kReplacement;
    text.remove_prefix(length);
  }
  return shown;
}

// Collects what a stream is given until it is flushed, and hands it on.
class TerminalStreams::Filter : public std::stringbuf {
 public:
  explicit Filter(std::ostream& stream)
      : std::stringbuf(std::ios::out), stream_(stream), below_(stream.rdbuf(this)) {}
  ~Filter() override {
    stream_.flush();
    stream_.rdbuf(below_);
  }
  Filter(const Filter&) = delete;
  Filter& operator=(const Filter&) = delete;

 protected:
  int sync() override {
    const std::string shown = ForTerminal(view());
    str("");
    const auto size = static_cast<std::streamsize>(shown.size());
    return below_->sputn(shown.data(), size) == size ? below_->pubsync() : -1;
  }

 private:
  std::ostream& stream_;
  std::streambuf* const below_;
};

TerminalStreams::TerminalStreams()
    : output_(isatty(STDOUT_FILENO) == 1 ? std::make_unique<Filter>(std::cout) : nullptr),
      errors_(isatty(STDERR_FILENO) == 1 ? std::make_unique<Filter>(std::cerr) : nullptr) {}

TerminalStreams::~TerminalStreams() = default;

}  // namespace postwright
