#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_THEMEDICON_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_THEMEDICON_H_

#include <QIcon>
#include <QString>

#include "apps/addressbook/book/Entry.h"

namespace postwright::addressbook {

// Icons that are drawn in the colours of the palette, at any size, whatever the palette is at that
// moment.

// The icon of a file in icons/ ("open", "print"), in the colour of text.
QIcon themedIcon(const QString& name);

// The icon for where an entry stands with the service.
QIcon stateIcon(CheckState state);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_THEMEDICON_H_
