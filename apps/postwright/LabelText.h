#ifndef POSTWRIGHT_APPS_POSTWRIGHT_LABELTEXT_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_LABELTEXT_H_

#include <initializer_list>
#include <string>
#include <utility>

#include "apps/postwright/InputBytes.h"

namespace postwright {

// Returns `input`, read by now, as the text of one label. Throws Failure where it is empty, is
// longer than a label can be, or is not UTF-8.
std::wstring LabelTextOf(const InputBytes& input);

// Throws Failure where one of the options, each with its name, was given: one label has no use for
// them.
void RefuseOptionsOfMany(std::initializer_list<std::pair<const char*, bool>> given);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_LABELTEXT_H_
