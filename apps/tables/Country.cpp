#include "apps/tables/Country.h"

#include <QLocale>
#include <QSet>
#include <QStringList>

#include "apps/tables/LabelText.h"

namespace postwright::tables {

namespace {

// Names that the tables of territories do not have, as lettersOf() gives them.
constexpr const char* kOtherNames =
    "UK ENGLAND SCOTLAND WALES NORTHERNIRELAND GREATBRITAIN HOLLAND THENETHERLANDS SOUTHKOREA "
    "KOREA "
    "DEUTSCHLAND CZECHREPUBLIC RUSSIA ALEMANIA FRANCIA INGLATERRA REINOUNIDO BRASIL CANADÁ MÉXICO "
    "ESPAÑA PERÚ PANAMÁ ITALIA JAPÓN SUIZA";

bool isOfHome(QLocale::Territory territory) {
  switch (territory) {
    case QLocale::AnyTerritory:
    case QLocale::UnitedStates:
    case QLocale::PuertoRico:
    case QLocale::Guam:
    case QLocale::AmericanSamoa:
    case QLocale::UnitedStatesVirginIslands:
    case QLocale::NorthernMarianaIslands:
    case QLocale::UnitedStatesOutlyingIslands:
    case QLocale::Georgia:
      return true;
    default:
      return false;
  }
}

const QSet<QString>& foreignNames() {
  static const QSet<QString> names = [] {
    QSet<QString> read;
    for (int number = 0; number <= QLocale::LastTerritory; ++number) {
      const auto territory = static_cast<QLocale::Territory>(number);
      if (!isOfHome(territory)) {
        read.insert(lettersOf(QLocale::territoryToString(territory)));
      }
    }
    for (const QString& name : QString::fromUtf8(kOtherNames).split(QLatin1Char(' '))) {
      read.insert(name);
    }
    return read;
  }();
  return names;
}

}  // namespace

bool isHomeCountry(const QString& name) {
  static const QStringList names = {QStringLiteral("US"),
                                    QStringLiteral("USA"),
                                    QStringLiteral("UNITEDSTATES"),
                                    QStringLiteral("UNITEDSTATESOFAMERICA"),
                                    QStringLiteral("ESTADOSUNIDOS"),
                                    QStringLiteral("EEUU")};
  return names.contains(lettersOf(name));
}

QString countryName(const QString& text) {
  const bool isCode = text.size() == 2 || text.size() == 3;
  const QLocale::Territory territory =
      isCode ? QLocale::codeToTerritory(text.toUpper()) : QLocale::AnyTerritory;
  return territory == QLocale::AnyTerritory ? text : QLocale::territoryToString(territory);
}

bool isForeignLabel(const QString& label) {
  const qsizetype last = label.lastIndexOf(QLatin1Char('\n'));
  return last > 0 && foreignNames().contains(lettersOf(QStringView(label).sliced(last + 1)));
}

}  // namespace postwright::tables
