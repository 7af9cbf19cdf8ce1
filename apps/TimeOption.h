#ifndef POSTWRIGHT_APPS_TIMEOPTION_H_
#define POSTWRIGHT_APPS_TIMEOPTION_H_

#include <chrono>
#include <string>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace postwright {

// Adds an option whose value is "30d", "12h", "90min" or "45s": a second at least, ten years at
// most. `target` must live until `app` has parsed, to which the option belongs.
CLI::Option* AddTimeOption(CLI::App& app, const std::string& name, std::chrono::seconds& target,
                           const std::string& help);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_TIMEOPTION_H_
