#include "client/batch/review/SameChange.h"

#include <QRegularExpression>
#include <algorithm>

#include "client/batch/review/BatchReview.h"

namespace postwright {

QList<Change> wordChanges(const QString& before, const QString& after) {
  QList<Change> changes = findDifferences(before, after).changes;
  changes.removeIf([](const Change& change) {
    return change.to.isEmpty() ||
           std::none_of(change.from.begin(), change.from.end(),
                        [](QChar character) { return character.isLetter(); });
  });
  return changes;
}

QString withChanges(const QString& text, const QList<Change>& changes) {
  QString changed = text;
  for (const Change& change : changes) {
    const QString words = QRegularExpression::escape(change.from)
                              .replace(QStringLiteral("\\ "), QStringLiteral("\\s+"));
    const QRegularExpression expression(
        QStringLiteral("(?<!\\S)%1(?!\\S)").arg(words),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    QString escaped = change.to;
    escaped.replace(u'\\', QStringLiteral("\\\\"));
    changed.replace(expression, escaped);
  }
  return changed;
}

BatchResultRecordList recordsToChange(const BatchResultRecordList& records,
                                      const QList<Change>& changes,
                                      const BatchResultRecord& except) {
  BatchResultRecordList found;
  if (changes.isEmpty()) {
    return found;
  }
  std::copy_if(records.begin(), records.end(), std::back_inserter(found),
               [&](const BatchResultRecordPointer& record) {
                 const BatchResultRecord::Values values = record->values();
                 return record.get() != &except && (values.pending || needsPerson(values)) &&
                        withChanges(values.address, changes) != values.address;
               });
  return found;
}

}  // namespace postwright
