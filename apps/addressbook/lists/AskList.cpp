#include "apps/addressbook/lists/AskList.h"

#include <algorithm>
#include <iterator>

#include "apps/addressbook/book/Book.h"

namespace postwright::addressbook {

QList<int> AskList::of(const Book& book, const QList<int>& rows) {
  QList<int> asked;
  std::copy_if(rows.begin(), rows.end(), std::back_inserter(asked), [&book](int row) {
    return book.stateAt(row) == CheckState::Failed && !book.at(row).check.isUnanswered;
  });
  return asked;
}

QString AskList::page(const Book& book, const QList<int>& rows) {
  const QString cells = QStringLiteral(
      "<tr><td width='32%'>%1</td><td width='30%'>%2</td><td width='38%'>%3</td></tr>");
  const QString bold = QStringLiteral("<b>%1</b>");
  QString listed;
  for (const int row : rows) {
    const Entry& entry = book.at(row);
    listed += cells.arg(entry.label.toHtmlEscaped().replace(u'\n', QStringLiteral("<br/>")),
                        entry.check.failure.toHtmlEscaped(), QString());
  }
  return QStringLiteral(
             "<h2>%1</h2><table width='100%' border='1' cellspacing='0' cellpadding='5' "
             "style='border-collapse:collapse'><thead>%2</thead>%3</table>")
      .arg(tr("Addresses to ask about"),
           cells.arg(bold.arg(tr("As it is")), bold.arg(tr("What is wrong")),
                     bold.arg(tr("The right address"))),
           listed);
}

QString AskList::text(const Book& book, const QList<int>& rows) {
  QStringList listed;
  for (const int row : rows) {
    const Entry& entry = book.at(row);
    listed += entry.label + u'\n' + tr("What is wrong: %1").arg(entry.check.failure) + u'\n' +
              tr("The right address:");
  }
  return listed.join(QStringLiteral("\n\n")) + u'\n';
}

}  // namespace postwright::addressbook
