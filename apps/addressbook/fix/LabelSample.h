#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FIX_LABELSAMPLE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FIX_LABELSAMPLE_H_

#include <QString>

#include "apps/addressbook/fix/AddressFixer.h"

namespace postwright::addressbook {

// Returns a made-up label as it looks once it is corrected with `settings`. Asks nobody.
QString labelSample(const FixSettings& settings);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FIX_LABELSAMPLE_H_
