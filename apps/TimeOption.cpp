#include "apps/TimeOption.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

namespace postwright {
namespace {

std::optional<std::chrono::seconds> ParseTime(const std::string& text) {
  constexpr std::chrono::seconds kLongest = std::chrono::hours(24 * 3650);
  const std::pair<std::string_view, std::chrono::seconds> units[] = {
      {"d", std::chrono::hours(24)},
      {"h", std::chrono::hours(1)},
      {"min", std::chrono::minutes(1)},
      {"s", std::chrono::seconds(1)},
  };
  int number = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  for (const auto& [name, unit] : units) {
    if (error == std::errc() && name == std::string_view(rest, static_cast<size_t>(end - rest)) &&
        number > 0 && number <= kLongest / unit) {
      return number * unit;
    }
  }
  return std::nullopt;
}

}  // namespace

CLI::Option* AddTimeOption(CLI::App& app, const std::string& name, std::chrono::seconds& target,
                           const std::string& help) {
  return app
      .add_option_function<std::string>(
          name,
          [name, &target](const std::string& text) {
            const auto read = ParseTime(text);
            if (!read) {
              throw CLI::ValidationError(name, "'" + text + "' is not as 30d, 12h or 20s");
            }
            target = *read;
          },
          help)
      ->type_name("TIME");
}

}  // namespace postwright
