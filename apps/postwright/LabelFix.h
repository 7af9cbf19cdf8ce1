#ifndef POSTWRIGHT_APPS_POSTWRIGHT_LABELFIX_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_LABELFIX_H_

#include <string>

namespace postwright {

struct LabelFix {
  std::wstring corrected;  // the corrected text; empty where the fix failed
  std::wstring failure;    // why it failed; empty where it did not
};

// Corrects one label with a single request to the Verify service; blocks for as long as that takes.
// One fix at a time.
LabelFix FixLabel(const std::wstring& address);

// Whether two address texts hold the same letters and digits, in whatever case: spacing,
// punctuation and line breaks make no difference.
bool IsAddressEqual(const std::wstring& address, const std::wstring& other);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_LABELFIX_H_
