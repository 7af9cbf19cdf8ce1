#ifndef POSTWRIGHT_CLIENT_LOCALIZEDSTRING_H_
#define POSTWRIGHT_CLIENT_LOCALIZEDSTRING_H_

#include <QString>

namespace postwright {

// Returns the text for `key` from the library's own string table, in the language of QLocale()
// where the library has it, else in English; empty for a key that the table does not hold. Needs no
// translator of the host's, and no application object. The language is settled at the first call.
QString localizedString(const char* key);

// The same, in the form that the language has for `count` things; the text's %n becomes the number.
QString localizedString(const char* key, qsizetype count);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_LOCALIZEDSTRING_H_
