#include "apps/postwright/LabelText.h"

#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/stream/LineReader.h"
#include "common/WideText.h"

namespace postwright {

std::wstring ReadLabelText(const std::string& name) {
  LineReader reader(name);
  const std::string text = reader.ReadAll();
  if (text.empty()) {
    throw Failure(reader.Name() + " is empty; a label's text is wanted", kExitNotALabel);
  }
  try {
    return WideFromUtf8(text);
  } catch (const boost::locale::conv::conversion_error&) {
    // Guessing another encoding would spoil names: the text is refused whole.
    throw Failure(reader.Name() + " is not valid UTF-8; convert it first, with iconv for instance",
                  kExitNotALabel);
  }
}

}  // namespace postwright
