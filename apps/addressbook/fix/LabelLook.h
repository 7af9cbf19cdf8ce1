#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FIX_LABELLOOK_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FIX_LABELLOOK_H_

#include <QString>
#include <functional>

#include "apps/addressbook/fix/AddressFixer.h"

namespace postwright::addressbook {

// How all labels of a sheet are to look, whatever they were typed as.
struct LabelLook {
  TextCase textCase = TextCase::Upper;
  Punctuation punctuation = Punctuation::Postal;  // from the first line with a digit on
};

// Returns what gives a label that look, `spellings` being the user's own. Labels of other countries
// stay as they are. Asks nobody, changes no entry.
std::function<QString(const QString&)> labelLook(const LabelLook& look, const QString& spellings);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FIX_LABELLOOK_H_
