#include "apps/addressbook/book/Entry.h"

#include <QCryptographicHash>

#include "apps/tables/Country.h"
#include "apps/tables/LabelText.h"

namespace postwright::addressbook {

namespace {

constexpr int kMonthsUntilDueAgain = 6;

}  // namespace

Known knownOfNumber(qint64 number) {
  const bool isOne = number >= static_cast<qint64>(Known::NotTold) &&
                     number <= static_cast<qint64>(Known::FormOnly);
  return isOne ? static_cast<Known>(number) : Known::NotTold;
}

QByteArray textFingerprint(const QString& label) {
  return QCryptographicHash::hash(tables::lettersOf(label).toUtf8(),
                                  QCryptographicHash::Blake2b_160);
}

CheckState checkState(const Entry& entry, QDate today) {
  const Check& check = entry.check;
  if (tables::isForeignLabel(entry.label)) {
    return CheckState::Foreign;
  }
  if (!check.day.isValid() || check.text != textFingerprint(entry.label)) {
    return CheckState::NotChecked;
  }
  if (!check.failure.isEmpty()) {
    return CheckState::Failed;
  }
  return check.day.addMonths(kMonthsUntilDueAgain) > today ? CheckState::Right
                                                           : CheckState::DueAgain;
}

bool saysConfirmation(CheckState state) {
  return state == CheckState::Right || state == CheckState::DueAgain;
}

bool hasAddress(const Entry& entry) {
  return entry.label.contains(QLatin1Char('\n')) || tables::readPlace(entry.label).has_value();
}

int urgency(CheckState state) {
  switch (state) {
    case CheckState::Failed:
      return 0;
    case CheckState::NotChecked:
      return 1;
    case CheckState::DueAgain:
      return 2;
    case CheckState::Right:
    case CheckState::Foreign:
      break;
  }
  return 3;
}

}  // namespace postwright::addressbook
