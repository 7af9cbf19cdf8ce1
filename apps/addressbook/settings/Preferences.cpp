#include "apps/addressbook/settings/Preferences.h"

#include <QFileInfo>
#include <QSettings>
#include <algorithm>

namespace postwright::addressbook {

namespace {

const QString kCase = QStringLiteral("fix/case");
const QString kPunctuation = QStringLiteral("fix/punctuation");
const QString kRemovePunctuation = QStringLiteral("fix/removePunctuation");  // of old: yes or no
const QString kNames = QStringLiteral("fix/names");
const QString kSpellings = QStringLiteral("fix/spellings");
const QString kServer = QStringLiteral("fix/server");
const QString kAppearance = QStringLiteral("window/appearance");
const QString kRecent = QStringLiteral("recentFiles");

// A number from the settings, which anyone may have edited.
int bounded(const QSettings& settings, const QString& key, int usual, int count) {
  const int number = settings.value(key, usual).toInt();
  return number >= 0 && number < count ? number : usual;
}

}  // namespace

Preferences Preferences::load() {
  const QSettings settings;
  Preferences preferences;
  FixSettings& fix = preferences.fix;
  fix.textCase = static_cast<TextCase>(bounded(settings, kCase, 0, 3));
  const Punctuation usual =
      settings.value(kRemovePunctuation, true).toBool() ? Punctuation::Postal : Punctuation::Keep;
  fix.punctuation =
      static_cast<Punctuation>(bounded(settings, kPunctuation, static_cast<int>(usual), 3));
  fix.names = static_cast<Names>(bounded(settings, kNames, 0, 2));
  fix.spellings = settings.value(kSpellings).toString();
  fix.server = settings.value(kServer).toString();
  preferences.appearance = static_cast<Appearance>(bounded(settings, kAppearance, 0, 3));
  preferences.print = PrintSettings::load(settings);
  return preferences;
}

void Preferences::save() const {
  QSettings settings;
  settings.setValue(kCase, static_cast<int>(fix.textCase));
  settings.setValue(kPunctuation, static_cast<int>(fix.punctuation));
  settings.setValue(kNames, static_cast<int>(fix.names));
  settings.setValue(kSpellings, fix.spellings);
  settings.setValue(kServer, fix.server);
  settings.setValue(kAppearance, static_cast<int>(appearance));
  print.save(settings);
}

QStringList RecentFiles::list() {
  return QSettings().value(kRecent).toStringList();
}

void RecentFiles::add(const QString& path) {
  const QString whole = QFileInfo(path).absoluteFilePath();
  QStringList files = list();
  files.removeAll(whole);
  files.prepend(whole);
  files.resize(std::min<qsizetype>(files.size(), kMost));
  QSettings().setValue(kRecent, files);
}

void RecentFiles::remove(const QString& path) {
  QStringList files = list();
  files.removeAll(QFileInfo(path).absoluteFilePath());
  QSettings().setValue(kRecent, files);
}

void RecentFiles::clear() {
  QSettings().remove(kRecent);
}

}  // namespace postwright::addressbook
