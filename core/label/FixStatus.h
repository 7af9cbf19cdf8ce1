#ifndef POSTWRIGHT_CORE_LABEL_FIXSTATUS_H_
#define POSTWRIGHT_CORE_LABEL_FIXSTATUS_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace postwright {

// What became of a label. The numbers are those of the command's records.
enum class FixStatus : std::int32_t {
  kUnchanged = 0,
  kFixed = 1,
  kUndecided = 2,
  kTurnedDown = 3,
  kUnanswered = 4,
};

// Their codes, as the tables of the command have them, in the order of the numbers.
inline constexpr std::array<std::string_view, 5> kFixStatusCodes = {
    "unchanged", "fixed", "to-decide", "turned-down", "not-answered"};

constexpr std::string_view CodeOf(FixStatus status) {
  return kFixStatusCodes.at(static_cast<std::size_t>(status));
}

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_LABEL_FIXSTATUS_H_
