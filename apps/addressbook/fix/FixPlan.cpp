#include "apps/addressbook/fix/FixPlan.h"

#include <algorithm>
#include <numeric>

#include "apps/tables/LabelText.h"

namespace postwright::addressbook {

namespace {

bool wasRight(CheckState state) {
  return state == CheckState::Right || state == CheckState::DueAgain;
}

}  // namespace

QList<int> rowsToFix(const Book& book, const QList<int>& rows, bool includesRight) {
  QList<int> due;
  std::copy_if(rows.begin(), rows.end(), std::back_inserter(due), [&](int row) {
    return hasAddress(book.at(row)) && book.stateAt(row) != CheckState::Foreign &&
           (includesRight || book.stateAt(row) != CheckState::Right);
  });
  return due;
}

QList<int> allRows(const Book& book) {
  QList<int> rows(book.size());
  std::iota(rows.begin(), rows.end(), 0);
  return rows;
}

QList<int> failedRows(const Book& book) {
  QList<int> rows = allRows(book);
  rows.removeIf([&book](int row) { return book.stateAt(row) != CheckState::Failed; });
  return rows;
}

QStringList labelsAt(const Book& book, const QList<int>& rows) {
  QStringList labels;
  labels.reserve(rows.size());
  for (const int row : rows) {
    labels.append(book.at(row).label);
  }
  return labels;
}

BookChanges changesOf(const Book& book, const QList<int>& rows, const QList<FixOutcome>& outcomes,
                      QDate today) {
  BookChanges changes;
  for (qsizetype each = 0; each < std::min(rows.size(), outcomes.size()); ++each) {
    const FixOutcome& outcome = outcomes[each];
    const bool isUnanswered = outcome.kind == FixOutcome::Kind::NoAnswer;
    if (isUnanswered && wasRight(book.stateAt(rows[each]))) {
      ++changes.leftRight;
      continue;
    }
    if (outcome.kind == FixOutcome::Kind::Open) {
      continue;
    }
    PlacedEntry placed{rows[each], book.at(rows[each])};
    Entry& entry = placed.entry;
    const bool isRight = outcome.kind == FixOutcome::Kind::Right;
    if (outcome.kind == FixOutcome::Kind::Corrected || (isRight && !outcome.text.isEmpty())) {
      entry.label = tables::tidyLabel(outcome.text);
      changes.labels.append(placed);
      ++(isRight ? changes.formed : changes.corrected);
    }
    const bool isFailed = outcome.kind == FixOutcome::Kind::Failed || isUnanswered;
    changes.failed += isFailed ? 1 : 0;
    if (isRight) {
      ++(outcome.known == Known::Whole ? changes.right : changes.unconfirmed);
    }
    entry.check = {today,
                   textFingerprint(entry.label),
                   isFailed ? outcome.text : QString(),
                   outcome.known,
                   outcome.source,
                   isUnanswered,
                   outcome.deliveryPoint};
    changes.checked.append(placed);
  }
  return changes;
}

}  // namespace postwright::addressbook
