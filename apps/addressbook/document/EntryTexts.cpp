// What the table of entries says: a part of EntryModel.

#include <QLocale>

#include "apps/addressbook/document/EntryModel.h"

namespace postwright::addressbook {

// A tool tip is read as HTML where it looks like it, and a label may hold anything.
QString EntryModel::toolTip(const QString& label) {
  return QStringLiteral("<p style='white-space:pre'>%1</p>").arg(label.toHtmlEscaped());
}

// The text of the cell, and after a confirmation who said so.
QString EntryModel::serviceTip(int bookRow, int column) const {
  const QString shown = text(bookRow, column);
  const QString& source = _book.at(bookRow).check.source;
  const bool isTold = column == Confirmed && !shown.isEmpty() && !source.isEmpty();
  return isTold ? toolTip(shown + u'\n' + source) : shown;
}

QString EntryModel::stateText(const Entry& entry, CheckState state) {
  const QString day = QLocale().toString(entry.check.day, QLocale::ShortFormat);
  switch (state) {
    case CheckState::Right:
      return (entry.check.known == Known::Whole ? tr("Right, %1") : tr("Checked, %1")).arg(day);
    case CheckState::DueAgain:
      return tr("Due again, checked %1").arg(day);
    case CheckState::Failed:
      return entry.check.failure;
    case CheckState::Foreign:
      return tr("Another country");
    case CheckState::NotChecked:
      break;
  }
  return hasAddress(entry) ? tr("Not checked") : tr("No address");
}

QString EntryModel::confirmationText(const Entry& entry, CheckState state) {
  return confirmationText(saysConfirmation(state) ? entry.check.known : Known::NotTold);
}

QString EntryModel::confirmationText(Known known) {
  switch (known) {
    case Known::Whole:
      return tr("Confirmed");
    case Known::UnitMissing:
      return tr("Confirmed but for its unit, which is missing");
    case Known::UnitNotKnown:
      return tr("Confirmed but for its unit, which is not known");
    case Known::NumberNotKnown:
      return tr("The street is known, the number is not");
    case Known::FormOnly:
      return tr("Form only, nobody has checked the street");
    case Known::NotTold:
      break;
  }
  return {};
}

QString EntryModel::sharingText(int sharing) {
  return sharing < 2 ? QString() : tr("%n at this address", nullptr, sharing);
}

QVariant EntryModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical || role != Qt::DisplayRole) {
    return QAbstractTableModel::headerData(section, orientation, role);
  }
  switch (section) {
    case Name:
      return tr("Name");
    case Street:
      return tr("Address");
    case Place:
      return tr("City and state");
    case Zip:
      return tr("ZIP code");
    case Sharing:
      return tr("Same address");
    case Kind:
      return tr("Kind");
    case Confirmed:
      return tr("Confirmation");
    default:
      return tr("Checked");
  }
}

}  // namespace postwright::addressbook
