#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_SETTINGS_TRANSLATIONS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_SETTINGS_TRANSLATIONS_H_

namespace postwright::addressbook {

// Has the application show its texts in the user's language, and Qt's own where they are installed.
// English is among the languages: its plurals are not in the source texts. Once, after the
// application object was made.
void installTranslations();

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_SETTINGS_TRANSLATIONS_H_
