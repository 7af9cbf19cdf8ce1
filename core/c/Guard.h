#ifndef POSTWRIGHT_CORE_C_GUARD_H_
#define POSTWRIGHT_CORE_C_GUARD_H_

#include <postwright/PostwrightException.h>
#include <postwright/postwright.h>

#include "common/WideText.h"

#include <new>
#include <optional>

namespace postwright {

// Runs a call's work; whatever it throws becomes a result.
template <typename Work>
std::int32_t Guard(Work work) noexcept {
  try {
    return work();
  } catch (const PostwrightException& failure) {
    return failure.GetResult();
  } catch (const std::bad_alloc&) {
    return POSTWRIGHT_NO_MEMORY;
  } catch (const boost::locale::conv::conversion_error&) {
    return POSTWRIGHT_BAD_TEXT;
  } catch (...) {
    return POSTWRIGHT_INTERNAL;
  }
}

// The text of a caller; nullopt where it holds a NUL, which would cut it short on its way. Throws
// boost::locale::conv::conversion_error where it is not UTF-8.
inline std::optional<std::wstring> ReadText(const char* text, std::size_t length) {
  const std::string_view whole =
      length == POSTWRIGHT_TERMINATED ? std::string_view(text) : std::string_view(text, length);
  if (whole.find('\0') != std::string_view::npos) {
    return std::nullopt;
  }
  return WideFromUtf8(whole);
}

// Runs a call that makes something of a text: `make` is given the text, wide, and says with its
// result whether it has set `made`, which is null otherwise.
template <typename Made, typename Make>
std::int32_t MakeOfText(const char* text, std::size_t length, Made** made, Make make) noexcept {
  if (made == nullptr) {
    return POSTWRIGHT_BAD_ARGUMENT;
  }
  *made = nullptr;
  if (text == nullptr) {
    return POSTWRIGHT_BAD_ARGUMENT;
  }
  return Guard([&]() -> std::int32_t {
    const std::optional<std::wstring> label = ReadText(text, length);
    return label ? make(*label) : std::int32_t{POSTWRIGHT_BAD_TEXT};
  });
}

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_C_GUARD_H_
