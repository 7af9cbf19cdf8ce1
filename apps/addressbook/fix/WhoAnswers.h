#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FIX_WHOANSWERS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FIX_WHOANSWERS_H_

#include <QString>

#include "apps/addressbook/fix/AddressFixer.h"

namespace postwright::addressbook {

// Says in a sentence who answers where the preferences name `server`: that service or another one,
// or the program itself, and from what.
QString whoAnswers(const AddressFixer& fixer, const QString& server);

// Says what is missing where the program answers with `server` by itself and knows no streets, and
// how it is had; empty where nothing is.
QString missingStreets(const AddressFixer& fixer, const QString& server);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FIX_WHOANSWERS_H_
