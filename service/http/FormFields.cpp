#include "service/http/FormFields.h"

#include "common/SmallText.h"

namespace postwright::service {
namespace {

// Takes what comes before the first `mark`, or all, and the mark.
std::string_view TakeUpTo(char mark, std::string_view& text) {
  const std::string_view taken = text.substr(0, text.find(mark));
  text.remove_prefix(taken.size());
  text = text.empty() ? text : text.substr(1);
  return taken;
}

}  // namespace

FormFields::FormFields(std::string_view encoded) {
  while (!encoded.empty()) {
    const std::string_view field = TakeUpTo('&', encoded);
    std::string_view value = field;
    const std::string_view name = TakeUpTo('=', value);
    fields_.emplace_back(UnescapeQuery(name), UnescapeQuery(value));
  }
}

std::optional<std::string_view> FormFields::Find(std::string_view name) const {
  for (const auto& [key, value] : fields_) {
    if (EqualsIgnoringCase(key, name)) {
      return value;
    }
  }
  return std::nullopt;
}

}  // namespace postwright::service
