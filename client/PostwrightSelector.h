#ifndef POSTWRIGHT_CLIENT_POSTWRIGHTSELECTOR_H_
#define POSTWRIGHT_CLIENT_POSTWRIGHTSELECTOR_H_

#include <postwright/ClientExport.h>

#include <QString>
#include <memory>
#include <optional>

namespace postwright {

// One candidate address, which may stand for a run of units: it shows itself, and gives the final
// address text once a value of the run has been named.
//
//   auto selector = PostwrightSelector::postwrightSelectorWithAddressPattern(
//       "100 MAIN ST %@\nAUSTIN, TX 78701", "100 MAIN ST (1A - 1F)\nAUSTIN, TX 78701", "1A", "1F");
//   selector->fixAddressWithCharacter("C");
//   selector->fixedAddress();  // "100 MAIN ST 1C\nAUSTIN, TX 78701"
//
// A value is named by the last character of the bounds alone: from 1A to 1F the user is shown A to
// F and the typed text replaces the last character of the low bound. Nothing typed is compared with
// the bounds. A character here is what a person takes for one (a letter with its combining marks).
//
// A candidate may span house numbers as well, "(100 - 198) MAIN ST (1A - 1F)". A person expects to
// be asked for both, and to find the unit where the unit is. So the named unit fills the
// placeholder whose place the unit's range takes in the template, the last one of the pattern;
// setHouseNumber() fills the other, and until then that one shows the range of the template,
// "(100 - 198)", which a reader cannot mistake for an address. A candidate with a house-number
// range only has no bounds here (hasRange() is false) and keeps its "%@" in fixedAddress(): its
// number is for the user to fill in.
//
// Not locked: it belongs to the thread of the windows once the fix that made it has returned.
class POSTWRIGHT_CLIENT_EXPORT PostwrightSelector {
 public:
  // The keyword form is postwrightSelectorWithAddressPattern:addressTemplate:lowBound:highBound:.
  // `addressPattern` holds "%@" where a value goes, `addressTemplate` the range itself. Nothing is
  // checked; without a low bound the pattern is the final address itself. Never null.
  static std::shared_ptr<PostwrightSelector> postwrightSelectorWithAddressPattern(
      const QString& addressPattern, const QString& addressTemplate, const QString& lowBound,
      const QString& highBound);

  // The same, initWithAddressPattern:addressTemplate:lowBound:highBound:.
  PostwrightSelector(const QString& addressPattern, const QString& addressTemplate,
                     const QString& lowBound, const QString& highBound);

  // True when there is a low bound. The high bound is not looked at.
  bool hasRange() const { return !_lowBound.isEmpty(); }

  // The candidate as it is shown, ranges in parentheses, of several lines.
  QString addressTemplate() const { return _addressTemplate; }

  // The final address, of several lines; nil for a range of which no value was named.
  std::optional<QString> fixedAddress() const { return _fixedAddress; }

  // The last character of the bound; empty for an empty bound. Both bounds must be there where
  // they are shown to a person.
  QString lowCharacter() const;
  QString highCharacter() const;

  // Returns the low bound with `character`, whole and of any length, in place of its last
  // character.
  QString lowWithNewCharacter(const QString& character) const;

  // Names the unit: fixedAddress() becomes the pattern with lowWithNewCharacter(character) in it,
  // whatever it was before. No percent sign but that of the placeholder means anything.
  void fixAddressWithCharacter(const QString& character);

  // The house numbers that a candidate with a unit range spans too, as the template shows them,
  // "100 - 198"; nil where there are none.
  std::optional<QString> houseNumberRange() const;

  // Names the house number for the next fixAddressWithCharacter(). No effect without such a range.
  void setHouseNumber(const QString& number) { _houseNumber = number; }

 private:
  qsizetype unitPlaceholder() const;
  qsizetype houseNumberPlaceholder(qsizetype unit) const;

  QString _addressTemplate;
  QString _addressPattern;
  std::optional<QString> _fixedAddress;
  QString _lowBound;
  QString _highBound;
  QString _houseNumber;
};

using PostwrightSelectorPointer = std::shared_ptr<PostwrightSelector>;

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_POSTWRIGHTSELECTOR_H_
