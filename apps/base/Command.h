#ifndef POSTWRIGHT_APPS_BASE_COMMAND_H_
#define POSTWRIGHT_APPS_BASE_COMMAND_H_

#include <functional>

namespace CLI {
class App;
}  // namespace CLI

namespace postwright::postal {

// A subcommand: what parses its options, and what is run where it is named.
struct Command {
  CLI::App* parser;
  std::function<int()> run;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_APPS_BASE_COMMAND_H_
