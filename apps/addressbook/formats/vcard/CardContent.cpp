#include "apps/addressbook/formats/vcard/CardContent.h"

#include <QHash>
#include <QSet>
#include <algorithm>

#include "apps/tables/Country.h"
#include "apps/tables/LabelText.h"

namespace postwright::addressbook {

namespace {

const QLatin1Char kLineFeed('\n');

// A line of a street or a box; names have no digits.
bool holdsDigit(const QString& line) {
  return std::any_of(line.begin(), line.end(), [](QChar c) { return c.isDigit(); });
}

}  // namespace

QString boxLine(const QString& box) {
  const bool isNumber = std::all_of(box.begin(), box.end(), [](QChar c) { return c.isDigit(); });
  return isNumber && !box.isEmpty() ? QStringLiteral("PO Box ") + box : box;
}

QString placeLine(const QList<QStringList>& components) {
  const auto joined = [&components](AddressComponent component) {
    return components[component].join(QStringLiteral(", "));
  };
  const QString city = joined(kLocality);
  const QString state = joined(kRegion);
  const QString cityAndState =
      city.isEmpty() || state.isEmpty() ? city + state : city + QStringLiteral(", ") + state;
  return QString(cityAndState + QLatin1Char(' ') + joined(kPostalCode)).trimmed();
}

CardContent::CardContent(const QByteArray& text, const Card& card) : _version(card.version) {
  for (const CardLine& line : card.lines) {
    if (!_first.contains(line.property)) {
      _first.insert(line.property, static_cast<int>(_properties.size()));
    }
    _properties.append(line.property);
    _lines.append(ContentLine::parse(line.range.of(text), card.version));
  }
}

const std::optional<ContentLine>& CardContent::line(int place) const {
  static const std::optional<ContentLine> none;
  return place < 0 ? none : _lines[place];
}

int CardContent::placeOf(CardProperty property) const {
  return _first.value(property, -1);
}

QList<int> CardContent::placesOf(CardProperty property) const {
  QList<int> places;
  for (int place = 0; place < _properties.size(); ++place) {
    if (_properties[place] == property && _lines[place]) {
      places.append(place);
    }
  }
  return places;
}

// A label goes with the address of its group, else with the next one of its types, else with the
// only one.
QList<AddressLines> CardContent::addresses() const {
  const QList<int> labels = placesOf(CardProperty::Label);
  QHash<QString, QList<int>> byGroup;
  QHash<QStringList, QList<int>> byTypes;
  for (auto label = labels.crbegin(); label != labels.crend(); ++label) {
    byGroup[_lines[*label]->group()].append(*label);
    byTypes[_lines[*label]->types()].append(*label);
  }
  byGroup.remove(QString());
  QSet<int> taken;
  const auto take = [&taken](QList<int>& offered) {
    while (!offered.isEmpty() && taken.contains(offered.last())) {
      offered.removeLast();
    }
    return offered.isEmpty() ? -1 : offered.takeLast();
  };
  QList<AddressLines> addresses;
  const QList<int> places = placesOf(CardProperty::Address);
  const bool isOnlyOne = labels.size() == 1 && places.size() == 1;
  for (const int address : places) {
    int label = take(byGroup[_lines[address]->group()]);
    label = label >= 0 ? label : take(byTypes[_lines[address]->types()]);
    label = label < 0 && isOnlyOne ? labels.first() : label;
    taken.insert(label);
    addresses.append({address, label});
  }
  for (const int label : labels) {
    if (!taken.contains(label)) {
      addresses.append({-1, label});
    }
  }
  if (addresses.isEmpty()) {
    addresses.append(AddressLines{});
  }
  return addresses;
}

QString CardContent::keptLabel(const AddressLines& lines) const {
  if (lines.label >= 0) {
    return tables::tidyLabel(unescapeText(_lines[lines.label]->value()));
  }
  return lines.address < 0
             ? QString()
             : tables::tidyLabel(
                   _lines[lines.address]->parameter(QStringLiteral("LABEL")).value_or(QString()));
}

QString CardContent::label(const AddressLines& lines) const {
  const QString kept = keptLabel(lines);
  if (kept.isEmpty() || isOutdated(kept, lines)) {
    return composedLabel(lines);
  }
  const QString name = this->name();
  const QString first = kept.section(kLineFeed, 0, 0);
  return name.isEmpty() || !holdsDigit(first) || holdsDigit(name) ? kept : name + kLineFeed + kept;
}

// Where both have a street and a place, the address counts as soon as they differ.
bool CardContent::isOutdated(const QString& kept, const AddressLines& lines) const {
  if (lines.address < 0) {
    return false;
  }
  const QList<QStringList> parts = components(lines.address);
  const QString letters = tables::lettersOf(kept);
  const bool isWhole = !(parts[kStreetAddress] + parts[kPostOfficeBox]).isEmpty() &&
                       !parts[kLocality].isEmpty() && !parts[kPostalCode].isEmpty();
  const QStringList said = parts[kPostOfficeBox] + parts[kExtendedAddress] + parts[kStreetAddress] +
                           parts[kLocality] + parts[kPostalCode];
  return isWhole && !std::all_of(said.begin(), said.end(), [&letters](const QString& each) {
           return letters.contains(tables::lettersOf(each));
         });
}

QString CardContent::kind(const AddressLines& lines) const {
  const std::optional<ContentLine>& found = line(lines.address >= 0 ? lines.address : lines.label);
  const QStringList types = found ? found->types() : QStringList();
  const bool isHome = types.contains(QStringLiteral("HOME"));
  const bool isWork = types.contains(QStringLiteral("WORK"));
  return isHome == isWork ? QString() : isHome ? QStringLiteral("HOME") : QStringLiteral("WORK");
}

QString CardContent::composedLabel(const AddressLines& lines) const {
  QStringList composed{name()};
  if (name().isEmpty() || kind(lines) != u"HOME") {
    composed += organization();
  }
  composed.removeDuplicates();
  if (lines.address >= 0) {
    composed += addressLines(lines.address);
  }
  composed.removeAll(QString());
  return tables::tidyLabel(composed.join(kLineFeed));
}

QString CardContent::name() const {
  const std::optional<ContentLine>& found = line(placeOf(CardProperty::FormattedName));
  return found ? tables::tidyLabel(unescapeText(found->value())).trimmed() : QString();
}

QString CardContent::lastName() const {
  const std::optional<ContentLine>& found = line(placeOf(CardProperty::Name));
  const QStringList family =
      found ? splitComponents(found->value(), _version).value(0) : QStringList();
  return tables::tidyLabel(family.join(QLatin1Char(' '))).trimmed();
}

QString CardContent::organization() const {
  const std::optional<ContentLine>& found = line(placeOf(CardProperty::Organization));
  if (!found) {
    return {};
  }
  const QStringList unit = splitComponents(found->value(), _version).first();
  return tables::tidyLabel(unit.join(QLatin1Char(','))).trimmed();
}

QList<QStringList> CardContent::components(int place) const {
  QList<QStringList> components;
  if (const std::optional<ContentLine>& found = line(place)) {
    components = splitComponents(found->value(), _version);
    for (QStringList& values : components) {
      std::transform(values.begin(), values.end(), values.begin(),
                     [](const QString& value) { return tables::tidyLabel(value).trimmed(); });
      values.removeAll(QString());
    }
  }
  components.resize(kAddressComponents);
  return components;
}

QStringList CardContent::addressLines(int place) const {
  const QList<QStringList> parts = components(place);
  QStringList lines = parts[kStreetAddress] + parts[kExtendedAddress];
  lines += boxLine(parts[kPostOfficeBox].join(QStringLiteral(", ")));
  lines += placeLine(parts);
  const QString country = parts[kCountry].join(QStringLiteral(", "));
  lines += tables::isHomeCountry(country) ? QString() : country;
  return lines;
}

}  // namespace postwright::addressbook
