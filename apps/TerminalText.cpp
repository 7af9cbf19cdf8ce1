#include "apps/TerminalText.h"

#include <unistd.h>

#include <iostream>
#include <sstream>

#include "common/ShownText.h"

namespace postwright {

std::string ForTerminal(std::string_view text) {
  constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
  return ShownText(text, kReplacement, "\n\t");
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
