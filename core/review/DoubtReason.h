#ifndef POSTWRIGHT_CORE_REVIEW_DOUBTREASON_H_
#define POSTWRIGHT_CORE_REVIEW_DOUBTREASON_H_

#include <postwright/CorrectionRule.h>

#include <string>

namespace postwright {

// Returns the sentence that tells a person what is doubtful. `typed` and `corrected` are the words
// on both sides, of which a long run is cut short.
std::wstring DoubtReason(CorrectionRule rule, const std::wstring& typed,
                         const std::wstring& corrected);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_DOUBTREASON_H_
