#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_THEME_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_THEME_H_

#include "apps/addressbook/settings/Preferences.h"

namespace postwright::addressbook {

// Gives the application the palette of `appearance`, for all windows at once: that of the desktop,
// or one of our own that is light or dark whatever the desktop has.
void applyAppearance(Appearance appearance);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_THEME_H_
