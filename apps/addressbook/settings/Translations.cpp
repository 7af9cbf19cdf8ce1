#include "apps/addressbook/settings/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace postwright::addressbook {

void installTranslations() {
  const QString folder = QStringLiteral(":/addressbook/translations");
  auto* const qt = new QTranslator(QCoreApplication::instance());
  if (qt->load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
               QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(qt);
  }
  auto* const own = new QTranslator(QCoreApplication::instance());
  if (own->load(QLocale(), QStringLiteral("addressbook"), QStringLiteral("_"), folder) ||
      own->load(folder + QStringLiteral("/addressbook_en"))) {
    QCoreApplication::installTranslator(own);
  }
}

}  // namespace postwright::addressbook
