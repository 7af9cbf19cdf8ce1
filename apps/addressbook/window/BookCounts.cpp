#include "apps/addressbook/window/BookCounts.h"

#include <QLabel>
#include <QStatusBar>

#include "apps/addressbook/book/Book.h"

namespace postwright::addressbook {

BookCounts::BookCounts(QStatusBar* bar)
    : QObject(bar), _counts(new QLabel(bar)), _states(new QLabel(bar)) {
  _counts->setObjectName(QStringLiteral("counts"));
  _states->setObjectName(QStringLiteral("states"));
  bar->addWidget(_counts, 1);
  bar->addPermanentWidget(_states);
}

void BookCounts::show(const Book& book, int shown, int selected) {
  QStringList counts;
  counts += shown == book.size() ? tr("%n entries", nullptr, book.size())
                                 : tr("%1 of %n entries", nullptr, book.size()).arg(shown);
  if (selected > 1) {
    counts += tr("%n selected", nullptr, selected);
  }
  _counts->setText(counts.join(QStringLiteral(", ")));
  _states->setVisible(book.size() > 0);
  const int toCheck = book.count(CheckState::NotChecked) + book.count(CheckState::DueAgain);
  _states->setText(QStringList({tr("%n checked", nullptr, book.count(CheckState::Right)),
                                tr("%n to check", nullptr, toCheck),
                                tr("%n failed", nullptr, book.count(CheckState::Failed))})
                       .join(QStringLiteral("   ")));
}

}  // namespace postwright::addressbook
