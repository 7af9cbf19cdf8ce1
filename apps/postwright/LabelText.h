#ifndef POSTWRIGHT_APPS_POSTWRIGHT_LABELTEXT_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_LABELTEXT_H_

#include <string>

namespace postwright {

// Reads all of the file `name` ("-": standard input) as the text of one label. Throws Failure where
// it cannot be read, is empty, is longer than a label can be, or is not UTF-8.
std::wstring ReadLabelText(const std::string& name);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_LABELTEXT_H_
