#ifndef POSTWRIGHT_APPS_POSTWRIGHT_EXPLANATION_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_EXPLANATION_H_

#include <postwright/Confirmation.h>
#include <postwright/CorrectionReview.h>

#include <string>

#include "apps/postwright/LabelFix.h"

namespace postwright {

// How the command shows why a text was corrected, and how far the address was confirmed.

// A line for each change, for a person to read; empty where nothing has changed.
std::string ExplainInWords(const CorrectionReview& review);

// A line on how far the address was confirmed, and one on who said so; each is empty where nobody
// said anything of that.
std::string ExplainInWords(const Confirmation& confirmation);
std::string ExplainInWords(const VerifySource& source);

// Why `fix` gives the text back as it was typed, or none at all; empty where there is nothing to
// tell.
std::string ExplainReasonInWords(const LabelFix& fix);

// The changes as a JSON array of an object for each change: rule, text, doubt, typed and corrected
// with the lines and the offsets in code points at which they stand, and the reason of a doubt.
std::string ExplainInJson(const CorrectionReview& review);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_EXPLANATION_H_
