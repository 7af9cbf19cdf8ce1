#include "apps/tables/PackedAddress.h"

#include <optional>

#include "apps/tables/Country.h"
#include "apps/tables/LabelText.h"

namespace postwright::tables {

namespace {

const QString kBetween = QStringLiteral("  ");
constexpr qsizetype kLeastParts = 4;   // street, city, state, ZIP code
constexpr qsizetype kLeastAbroad = 3;  // street, city, country

QStringList partsOf(const QString& cell) {
  QStringList parts;
  if (!cell.contains(u'\n')) {
    for (const QString& part : cell.split(kBetween, Qt::SkipEmptyParts)) {
      parts += part.trimmed();
    }
    parts.removeAll(QString());
  }
  return parts;
}

// The place that the three parts before `end` make, "Austin, TX 78701"; empty where they are none.
QString placeBefore(const QStringList& parts, qsizetype end) {
  if (end < kLeastParts) {
    return {};
  }
  const QString place =
      parts[end - 3] + QStringLiteral(", ") + parts[end - 2] + u' ' + parts[end - 1];
  const bool hasComma = parts[end - 3].contains(u',');
  return hasComma || !readPlace(place) ? QString() : place;
}

}  // namespace

QStringList unpackedAddress(const QString& cell) {
  QStringList parts = partsOf(cell);
  const bool isHome = !parts.isEmpty() && isHomeCountry(parts.last());
  const qsizetype end = parts.size() - (isHome ? 1 : 0);
  if (const QString place = placeBefore(parts, end); !place.isEmpty()) {
    return parts.first(end - 3) + QStringList{place};
  }
  if (isHome || parts.size() < kLeastAbroad) {
    return {};
  }
  const QString country = countryName(parts.last());
  if (!isForeignLabel(parts.first() + u'\n' + country)) {
    return {};
  }
  return parts.first(parts.size() - 1) + QStringList{country};
}

QString packedAddress(const QStringList& lines, const QString& cell) {
  QStringList parts = partsOf(cell);
  const QStringList was = unpackedAddress(cell);
  if (lines.isEmpty() || was.isEmpty()) {
    return {};
  }
  const QString country = parts.last();
  if (const std::optional<PlaceParts> place = readPlace(lines.last())) {
    parts = lines.first(lines.size() - 1) + QStringList{place->city, place->state, place->zip};
    return (isHomeCountry(country) ? parts + QStringList{country} : parts).join(kBetween);
  }
  const bool isSame = sameLetters(lines.last(), was.last()) && !readPlace(was.last());
  return isSame ? (lines.first(lines.size() - 1) + QStringList{country}).join(kBetween) : QString();
}

}  // namespace postwright::tables
