#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_SETTINGS_PREFERENCES_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_SETTINGS_PREFERENCES_H_

#include <QString>
#include <QStringList>

#include "apps/addressbook/fix/AddressFixer.h"
#include "apps/addressbook/settings/PrintSettings.h"

namespace postwright::addressbook {

enum class Appearance { System, Light, Dark };

// What the user has set and the program remembers. The settings of the application hold it.
struct Preferences {
  static Preferences load();
  void save() const;

  FixSettings fix;
  Appearance appearance = Appearance::System;
  PrintSettings print;
};

// The files that were opened last, the latest one first.
class RecentFiles {
 public:
  static constexpr int kMost = 9;

  static QStringList list();
  static void add(const QString& path);
  static void remove(const QString& path);
  static void clear();
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_SETTINGS_PREFERENCES_H_
