#include <postwright/PostwrightSelector.h>

#include <QTextBoundaryFinder>
#include <algorithm>

#include "client/suite/StringHelpers.h"

namespace postwright {
namespace {

constexpr QStringView kPlaceholder = u"%@";

// Where the last character of `text` begins; 0 for the empty text.
qsizetype LastCharacter(const QString& text) {
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
  finder.toEnd();
  return std::max<qsizetype>(finder.toPreviousBoundary(), 0);
}

}  // namespace

std::shared_ptr<PostwrightSelector> PostwrightSelector::postwrightSelectorWithAddressPattern(
    const QString& addressPattern, const QString& addressTemplate, const QString& lowBound,
    const QString& highBound) {
  return std::make_shared<PostwrightSelector>(addressPattern, addressTemplate, lowBound, highBound);
}

PostwrightSelector::PostwrightSelector(const QString& addressPattern,
                                       const QString& addressTemplate, const QString& lowBound,
                                       const QString& highBound)
    : _addressTemplate(addressTemplate),
      _addressPattern(addressPattern),
      _lowBound(lowBound),
      _highBound(highBound) {
  if (!hasRange()) {
    _fixedAddress = _addressPattern;
  }
}

QString PostwrightSelector::lowCharacter() const {
  return _lowBound.mid(LastCharacter(_lowBound));
}

QString PostwrightSelector::highCharacter() const {
  return _highBound.mid(LastCharacter(_highBound));
}

QString PostwrightSelector::lowWithNewCharacter(const QString& character) const {
  return _lowBound.left(LastCharacter(_lowBound)) + character;
}

void PostwrightSelector::fixAddressWithCharacter(const QString& character) {
  const qsizetype unit = unitPlaceholder();
  const qsizetype houseNumber = houseNumberPlaceholder(unit);
  QString address = _addressPattern;
  if (unit >= 0) {
    address.replace(unit, kPlaceholder.size(), lowWithNewCharacter(character));
  }
  if (houseNumber >= 0) {
    const QString number =
        _houseNumber.isEmpty() ? u'(' + *houseNumberRange() + u')' : _houseNumber;
    address.replace(houseNumber, kPlaceholder.size(), number);
  }
  _fixedAddress = address;
}

std::optional<QString> PostwrightSelector::houseNumberRange() const {
  const qsizetype place = houseNumberPlaceholder(unitPlaceholder());
  if (place < 0) {
    return std::nullopt;
  }
  return _addressTemplate.mid(place + 1, _addressTemplate.indexOf(u')', place) - place - 1);
}

// The placeholder from which on pattern and template differ by the unit's range alone. Lines above
// and below the address are the user's and may hold the two characters as well. In a pattern that
// does not fit its template it is the last one; -1 where there is none.
qsizetype PostwrightSelector::unitPlaceholder() const {
  const QString range =
      StringHelpers::stringWithFormat(QStringLiteral("(%@ - %@)"), {_lowBound, _highBound});
  const qsizetype last = _addressPattern.lastIndexOf(kPlaceholder);
  for (qsizetype place = last; place >= 0;
       place = place > 0 ? _addressPattern.lastIndexOf(kPlaceholder, place - 1) : -1) {
    if (_addressTemplate.endsWith(range + _addressPattern.mid(place + kPlaceholder.size()))) {
      return place;
    }
  }
  return last;
}

// The placeholder in front of `unit` in whose place the template opens a range; -1 for none.
qsizetype PostwrightSelector::houseNumberPlaceholder(qsizetype unit) const {
  for (qsizetype place = _addressPattern.indexOf(kPlaceholder); place >= 0 && place < unit;
       place = _addressPattern.indexOf(kPlaceholder, place + 1)) {
    if (_addressTemplate.startsWith(_addressPattern.left(place) + u'(') &&
        _addressTemplate.indexOf(u')', place) >= 0) {
      return place;
    }
  }
  return -1;
}

}  // namespace postwright
