#include "apps/addressbook/formats/vcard/CardEditor.h"

#include <algorithm>

#include "apps/tables/LabelText.h"

namespace postwright::addressbook {

namespace {

const QLatin1Char kLineFeed('\n');

const QString kAddressName = QStringLiteral("ADR");
const QString kLabelName = QStringLiteral("LABEL");

bool holdsDigit(const QString& line) {
  return std::any_of(line.begin(), line.end(), [](QChar c) { return c.isDigit(); });
}

// Takes the line of `value` out of `lines`; nothing where it is not there.
QStringList takeSame(QStringList& lines, const QString& value) {
  const auto found = std::find_if(lines.begin(), lines.end(), [&value](const QString& line) {
    return !value.isEmpty() && tables::sameLetters(line, value);
  });
  if (found == lines.end()) {
    return {};
  }
  const QString line = *found;
  lines.erase(found);
  return {line};
}

// The country, which a label within it leaves out, stays as it was unless the label names another.
QStringList countryOf(const tables::LabelParts& parts, QStringList& above, const QStringList& old) {
  const QString country = old.join(QLatin1Char(' '));
  const QString below = parts.below.join(QLatin1Char(' '));
  if (!below.isEmpty()) {
    return tables::sameLetters(below, country) ? old : QStringList{below};
  }
  if (!parts.place && !above.isEmpty() && !country.isEmpty() &&
      tables::sameLetters(above.last(), country)) {
    above.removeLast();
  }
  return old;
}

// Divides what is left of a label, its name taken away, into the components of an address. What the
// label shows unchanged stays in the component that it came from; other lines are the street.
QString addressValue(const tables::LabelParts& parts, QStringList above,
                     const QList<QStringList>& old, CardVersion version) {
  QList<QStringList> components(kAddressComponents);
  components[kCountry] = countryOf(parts, above, old[kCountry]);
  if (parts.place) {
    components[kLocality] = {parts.place->city};
    components[kRegion] = {parts.place->state};
    components[kPostalCode] = {parts.place->zip};
  } else if (!takeSame(above, placeLine(old)).isEmpty()) {
    for (const AddressComponent each : {kLocality, kRegion, kPostalCode}) {
      components[each] = old[each];  // of another country, or without a state
    }
  }
  const QString box = old[kPostOfficeBox].join(QStringLiteral(", "));
  if (const QStringList line = takeSame(above, boxLine(box)); !line.isEmpty()) {
    components[kPostOfficeBox] = boxLine(box) == box ? line : QStringList{box};
  }
  for (const QString& extended : old[kExtendedAddress]) {
    components[kExtendedAddress] += takeSame(above, extended);
  }
  components[kStreetAddress] = above;
  return joinComponents(components, version);
}

}  // namespace

CardEditor::CardEditor(const QByteArray& text, const Card& card, QByteArray lineBreak)
    : _text(text), _card(card), _lineBreak(std::move(lineBreak)), _content(text, card) {}

void CardEditor::setLabel(const AddressLines& lines, const QString& label) {
  tables::LabelParts parts = tables::partLabel(label);
  QStringList old = _content.label(lines).split(kLineFeed);
  takeName(parts.above, old);
  takeOrganization(parts.above, old);
  const bool hasLines = lines.address >= 0 || lines.label >= 0;
  if (!hasLines && !parts.place && parts.above.isEmpty()) {
    return;  // still nothing but a name
  }
  setAddress(lines, label,
             addressValue(parts, parts.above, _content.components(lines.address), _card.version));
}

// Takes the name off the lines of the label, old and new, and changes it in the card where the
// label showed it and was given another one.
void CardEditor::takeName(QStringList& above, QStringList& old) {
  const QString name = _content.name();
  const bool wasShown = !old.isEmpty() && !name.isEmpty() && tables::sameLetters(old.first(), name);
  if (wasShown) {
    old.removeFirst();
  }
  if (above.isEmpty()) {
    return;
  }
  if (tables::sameLetters(above.first(), name)) {
    // A card made for a label without a name is named for its street, which stays.
    if (above.size() > 1 || !holdsDigit(name)) {
      above.removeFirst();
    }
  } else if (wasShown && !holdsDigit(above.first())) {
    const int place = _content.placeOf(CardProperty::FormattedName);
    ContentLine line = *_content.line(place);
    line.setValue(escapeText(above.takeFirst(), _card.version));
    replace(place, line);
  }
}

void CardEditor::takeOrganization(QStringList& above, const QStringList& old) {
  const QString organization = _content.organization();
  if (above.isEmpty() || organization.isEmpty()) {
    return;
  }
  if (tables::sameLetters(above.first(), organization)) {
    above.removeFirst();
    return;
  }
  const bool wasShown = !old.isEmpty() && tables::sameLetters(old.first(), organization);
  if (wasShown && above.size() > 1 && !holdsDigit(above.first())) {
    const int place = _content.placeOf(CardProperty::Organization);
    ContentLine line = *_content.line(place);
    QList<QStringList> units = splitComponents(line.value(), _card.version);
    units.first() = {above.takeFirst()};
    line.setValue(joinComponents(units, _card.version));
    replace(place, line);
  }
}

// The text of the label is kept where the card has one, or where the address cannot say it.
void CardEditor::setAddress(const AddressLines& lines, const QString& label, const QString& value) {
  const std::optional<ContentLine>& known = _content.line(lines.address);
  ContentLine address = known ? *known : ContentLine(QString(), kAddressName);
  address.setValue(value);
  if (_content.hasLabel(lines) || !saysAll(address, label)) {
    if (_card.version == CardVersion::V40 && lines.label < 0) {
      address.setParameter(kLabelName, label);
    } else {
      setLabelLine(lines, address, label);
    }
  }
  if (known) {
    replace(lines.address, address);
  } else if (lines.label < 0) {
    _added += format(address);
  }
}

// Tells whether the label that a reader would make of the address is this one, but for case,
// spacing and punctuation.
bool CardEditor::saysAll(const ContentLine& address, const QString& label) const {
  QByteArray text = "BEGIN:VCARD" + _lineBreak;
  for (const CardProperty property : {CardProperty::FormattedName, CardProperty::Organization}) {
    const int place = _content.placeOf(property);
    text += place < 0                   ? QByteArray()
            : _replaced.contains(place) ? _replaced[place]
                                        : _card.lines[place].range.of(_text);
  }
  text += format(address) + "END:VCARD" + _lineBreak;
  Card card = CardScanner::scan(text).first();
  card.version = _card.version;
  const CardContent content(text, card);
  const QStringList read = content.label(content.addresses().first()).split(kLineFeed);
  const QStringList wanted = label.split(kLineFeed);
  return std::equal(read.begin(), read.end(), wanted.begin(), wanted.end(),
                    [](const QString& a, const QString& b) { return tables::sameLetters(a, b); });
}

void CardEditor::setLabelLine(const AddressLines& lines, const ContentLine& address,
                              const QString& label) {
  const std::optional<ContentLine>& known = _content.line(lines.label);
  ContentLine line = known ? *known : ContentLine(address.group(), kLabelName);
  line.setValue(escapeText(label, _card.version));
  if (known) {
    replace(lines.label, line);
  } else {
    line.copyTypes(address);
    _added += format(line);
  }
}

void CardEditor::remove(const AddressLines& lines) {
  for (const int place : {lines.address, lines.label}) {
    if (place >= 0) {
      _replaced.insert(place, QByteArray());
    }
  }
}

void CardEditor::replace(int place, const ContentLine& line) {
  _replaced.insert(place, format(line));
}

QByteArray CardEditor::format(const ContentLine& line) const {
  return line.format(_card.version, _lineBreak);
}

QByteArray CardEditor::result() const {
  QByteArray changed;
  qsizetype copied = _card.range.begin;
  for (auto each = _replaced.cbegin(); each != _replaced.cend(); ++each) {
    const tables::TextRange& range = _card.lines[each.key()].range;
    changed += tables::TextRange{copied, range.begin}.of(_text) + each.value();
    copied = range.end;
  }
  changed += tables::TextRange{copied, _card.endLine}.of(_text) + _added;
  return changed + tables::TextRange{_card.endLine, _card.range.end}.of(_text);
}

QByteArray CardEditor::newCard(const QString& label, CardVersion version,
                               const QByteArray& lineBreak) {
  const QString name = label.section(kLineFeed, 0, 0);
  const QByteArray number = version == CardVersion::V40   ? "4.0"
                            : version == CardVersion::V30 ? "3.0"
                                                          : "2.1";
  ContentLine formattedName(QString(), QStringLiteral("FN"));
  formattedName.setValue(escapeText(name, version));
  QByteArray text = "BEGIN:VCARD" + lineBreak + "VERSION:" + number + lineBreak +
                    formattedName.format(version, lineBreak);
  if (version != CardVersion::V40) {
    // Here the name in its pieces is required; the last word is the family's.
    ContentLine pieces(QString(), QStringLiteral("N"));
    const qsizetype lastBlank = name.lastIndexOf(QLatin1Char(' '));
    pieces.setValue(joinComponents(
        {{name.mid(lastBlank + 1)}, {name.left(std::max<qsizetype>(lastBlank, 0))}, {}, {}, {}},
        version));
    text += pieces.format(version, lineBreak);
  }
  text += "END:VCARD" + lineBreak;
  const Card card = CardScanner::scan(text).first();
  CardEditor editor(text, card, lineBreak);
  editor.setLabel(AddressLines{}, label);
  return editor.result();
}

}  // namespace postwright::addressbook
