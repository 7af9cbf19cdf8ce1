#include "apps/addressbook/lists/MergeFile.h"

#include <algorithm>

#include "apps/addressbook/document/EntryModel.h"
#include "apps/addressbook/lists/MergeParts.h"
#include "apps/tables/CsvWriter.h"
#include "apps/tables/FormulaGuard.h"

namespace postwright::addressbook {

QByteArray MergeFile::write(const Book& book, const QList<int>& rows) {
  constexpr char kDelimiter = ',';
  QList<MergeParts> labels;
  qsizetype names = 1;
  for (const int row : rows) {
    labels.append(mergePartsOf(book.at(row).label));
    names = std::max(names, labels.last().names.size());
  }
  QStringList header{tr("Name")};
  for (qsizetype name = 2; name <= names; ++name) {
    header += tr("Name %1").arg(name);
  }
  header += {tr("Street"),   tr("Unit"), tr("City"),         tr("State"), tr("ZIP code"),
             tr("Below it"), tr("Kind"), tr("Confirmation"), tr("Reason")};
  QByteArray csv = tables::csvRow(header, kDelimiter) + "\r\n";
  for (qsizetype each = 0; each < rows.size(); ++each) {
    const Entry& entry = book.at(rows[each]);
    const CheckState state = book.stateAt(rows[each]);
    MergeParts& label = labels[each];
    label.names.resize(names);
    const bool isTurnedDown = state == CheckState::Failed && !entry.check.isUnanswered;
    const QString confirmation = EntryModel::confirmationText(entry, state);
    const QString stands = !confirmation.isEmpty()       ? confirmation
                           : isTurnedDown                ? tr("Turned down")
                           : state == CheckState::Failed ? tr("Not checked")
                                                         : EntryModel::stateText(entry, state);
    csv +=
        tables::csvRow(label.names + QStringList{label.street, label.unit, label.city, label.state,
                                                 label.zip, label.below, entry.kind, stands,
                                                 state == CheckState::Failed ? entry.check.failure
                                                                             : QString()},
                       kDelimiter) +
        "\r\n";
  }
  return QByteArrayLiteral("\xEF\xBB\xBF") + tables::guardFormulas(csv, kDelimiter);
}

}  // namespace postwright::addressbook
