#include "apps/postwright/LabelText.h"

#include <string_view>

#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/stream/LineReader.h"
#include "common/WideText.h"

namespace postwright {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

std::wstring LabelTextOf(const InputBytes& input) {
  if (!input.IsWhole()) {
    throw Failure(input.Name() + " is longer than a label can be (" +
                  std::to_string(LineReader::kLimit >> 20U) +
                  " MiB); for many labels use --jsonl or --csv");
  }
  std::string_view text = input.Bytes();
  if (text.starts_with(kByteOrderMark)) {
    text.remove_prefix(kByteOrderMark.size());
  }
  if (text.empty()) {
    throw Failure(input.Name() + " is empty; a label's text is wanted", kExitNotALabel);
  }
  try {
    return WideFromUtf8(text);
  } catch (const boost::locale::conv::conversion_error&) {
    // Guessing another encoding would spoil names: the text is refused whole.
    throw Failure(input.Name() + " is not valid UTF-8; convert it first, with iconv for instance",
                  kExitNotALabel);
  }
}

void RefuseOptionsOfMany(std::initializer_list<std::pair<const char*, bool>> given) {
  for (const auto& [name, isGiven] : given) {
    if (isGiven) {
      throw Failure(std::string(name) + " requires --jsonl or --csv");
    }
  }
}

}  // namespace postwright
