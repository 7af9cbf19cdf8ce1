#ifndef POSTWRIGHT_APPS_TERMINALTEXT_H_
#define POSTWRIGHT_APPS_TERMINALTEXT_H_

#include <memory>
#include <string>
#include <string_view>

namespace postwright {

// What others wrote, on a terminal: a label, a reply or a file's name could otherwise move the
// cursor, rename the window or show text in another order than it has.

// Returns `text` with U+FFFD in place of what ShownText takes out, but for line feeds and tabs.
std::string ForTerminal(std::string_view text);

// Has std::cout and std::cerr pass ForTerminal() where they are terminals, for as long as the
// object lives. The first thing in main, of a program that uses them on one thread.
class TerminalStreams {
 public:
  TerminalStreams();
  ~TerminalStreams();
  TerminalStreams(const TerminalStreams&) = delete;
  TerminalStreams& operator=(const TerminalStreams&) = delete;

 private:
  class Filter;
  std::unique_ptr<Filter> output_;
  std::unique_ptr<Filter> errors_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_TERMINALTEXT_H_
