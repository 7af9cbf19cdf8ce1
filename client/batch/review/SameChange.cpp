#include "client/batch/review/SameChange.h"

#include <QRegularExpression>
#include <algorithm>

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
    if (!changed.contains(change.from.section(u' ', 0, 0), Qt::CaseInsensitive)) {
      continue;  // most texts, told without an expression
    }
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

namespace {

// The words stand in it, and nobody has decided on them: the service neither confirmed nor changed
// them, and they are not what a person wrote or kept.
bool hasWords(const BatchResultRecord::Values& values, const QList<Change>& changes) {
  const auto stand = [&changes](const QString& text) { return withChanges(text, changes) != text; };
  const bool isAnswered =
      !values.pending && (values.status == AddressStatusFixed || values.isWellWritten());
  const bool isSettled =
      isAnswered && (values.confirmation.Kind() == ConfirmationFull || !stand(values.fixed));
  return !values.own && !isSettled && stand(values.address);
}

}  // namespace

BatchResultRecordList recordsToChange(const BatchResultRecordList& records,
                                      const QList<Change>& changes,
                                      const BatchResultRecord& except) {
  BatchResultRecordList found;
  if (changes.isEmpty()) {
    return found;
  }
  std::copy_if(records.begin(), records.end(), std::back_inserter(found),
               [&](const BatchResultRecordPointer& record) {
                 return record.get() != &except && hasWords(record->values(), changes);
               });
  return found;
}

}  // namespace postwright
