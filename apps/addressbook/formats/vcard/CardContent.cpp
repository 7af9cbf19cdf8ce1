#include "apps/addressbook/formats/vcard/CardContent.h"

#include <algorithm>

#include "apps/tables/LabelText.h"

namespace postwright::addressbook {

namespace {

const QLatin1Char kLineFeed('\n');

// Names of the country of which a label within it does not speak.
bool isHomeCountry(const QString& country) {
  static const QStringList names = {QStringLiteral("US"),
                                    QStringLiteral("USA"),
                                    QStringLiteral("UNITEDSTATES"),
                                    QStringLiteral("UNITEDSTATESOFAMERICA"),
                                    QStringLiteral("ESTADOSUNIDOS"),
                                    QStringLiteral("EEUU")};
  return names.contains(tables::lettersOf(country));
}

QString boxLine(const QString& box) {
  const bool isNumber = std::all_of(box.begin(), box.end(), [](QChar c) { return c.isDigit(); });
  return isNumber && !box.isEmpty() ? QStringLiteral("PO Box ") + box : box;
}

QString placeLine(const QString& city, const QString& state, const QString& zip) {
  const QString cityAndState =
      city.isEmpty() || state.isEmpty() ? city + state : city + QStringLiteral(", ") + state;
  return QString(cityAndState + QLatin1Char(' ') + zip).trimmed();
}

}  // namespace

CardContent::CardContent(const QByteArray& text, const Card& card) : _version(card.version) {
  for (const CardLine& line : card.lines) {
    _properties.append(line.property);
    _lines.append(ContentLine::parse(line.range.of(text), card.version));
  }
}

const std::optional<ContentLine>& CardContent::line(int place) const {
  static const std::optional<ContentLine> none;
  return place < 0 ? none : _lines[place];
}

int CardContent::placeOf(CardProperty property) const {
  return static_cast<int>(_properties.indexOf(property));
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

QList<AddressLines> CardContent::addresses() const {
  QList<AddressLines> addresses;
  QList<int> labels = placesOf(CardProperty::Label);
  for (const int address : placesOf(CardProperty::Address)) {
    const int label = labelFor(address);
    // Two addresses of one type would share a label; it belongs to the first of them.
    addresses.append({address, labels.removeOne(label) ? label : -1});
  }
  for (const int label : labels) {
    addresses.append({-1, label});
  }
  if (addresses.isEmpty()) {
    addresses.append(AddressLines{});
  }
  return addresses;
}

// A label goes with the address of its group, else with that of its types, else with the only one.
int CardContent::labelFor(int address) const {
  const QList<int> labels = placesOf(CardProperty::Label);
  const ContentLine& line = *_lines[address];
  for (const int label : labels) {
    if (!line.group().isEmpty() && line.group() == _lines[label]->group()) {
      return label;
    }
  }
  for (const int label : labels) {
    if (line.types() == _lines[label]->types()) {
      return label;
    }
  }
  const bool isOnlyOne = labels.size() == 1 && placesOf(CardProperty::Address).size() == 1;
  return isOnlyOne ? labels.first() : -1;
}

QString CardContent::label(const AddressLines& lines) const {
  if (lines.label >= 0) {
    return tables::tidyLabel(unescapeText(_lines[lines.label]->value()));
  }
  if (lines.address >= 0) {
    const QString kept = tables::tidyLabel(
        _lines[lines.address]->parameter(QStringLiteral("LABEL")).value_or(QString()));
    if (!kept.isEmpty()) {
      return kept;
    }
  }
  QStringList composed{name(), organization()};
  composed.removeDuplicates();
  if (lines.address >= 0) {
    composed += composeAddress(lines.address);
  }
  composed.removeAll(QString());
  return tables::tidyLabel(composed.join(kLineFeed));
}

QString CardContent::name() const {
  const std::optional<ContentLine>& found = line(placeOf(CardProperty::FormattedName));
  return found ? tables::tidyLabel(unescapeText(found->value())).trimmed() : QString();
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

QStringList CardContent::composeAddress(int place) const {
  const QList<QStringList> parts = components(place);
  const auto joined = [&parts](AddressComponent component) {
    return parts[component].join(QStringLiteral(", "));
  };
  QStringList lines = parts[kStreetAddress] + parts[kExtendedAddress];
  lines += boxLine(joined(kPostOfficeBox));
  lines += placeLine(joined(kLocality), joined(kRegion), joined(kPostalCode));
  const QString country = joined(kCountry);
  lines += isHomeCountry(country) ? QString() : country;
  return lines;
}

}  // namespace postwright::addressbook
