#include "apps/addressbook/window/SearchFields.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMap>
#include <QShortcut>
#include <algorithm>

#include "apps/addressbook/widgets/ThemedIcon.h"

namespace postwright::addressbook {

namespace {

constexpr int kSearchWidth = 260;
constexpr int kFilterLetters = 12;
constexpr int kMostListWidth = 480;
constexpr Known kTold[] = {Known::Whole, Known::UnitMissing, Known::UnitNotKnown,
                           Known::NumberNotKnown, Known::FormOnly};

}  // namespace

SearchFields::SearchFields(QWidget* parent)
    : QWidget(parent), _filter(new QComboBox(this)), _search(new QLineEdit(this)) {
  _filter->setObjectName(QStringLiteral("filter"));
  _filter->setAccessibleName(tr("Which entries are shown"));
  _filter->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  _filter->setMinimumContentsLength(kFilterLetters);
  _filter->view()->setTextElideMode(Qt::ElideRight);
  offer(Book());
  _search->setObjectName(QStringLiteral("searchField"));
  _search->setAccessibleName(tr("Search"));
  _search->setPlaceholderText(tr("Search"));
  _search->setClearButtonEnabled(true);
  _search->addAction(themedIcon(QStringLiteral("search")), QLineEdit::LeadingPosition);
  _search->setMaximumWidth(kSearchWidth);
  auto* const layout = new QHBoxLayout(this);
  layout->addStretch(1);
  layout->addWidget(_filter);
  layout->addWidget(_search, 2);
  connect(_search, &QLineEdit::textChanged, this, &SearchFields::changed);
  connect(_search, &QLineEdit::returnPressed, this, &SearchFields::entered);
  connect(_filter, &QComboBox::currentIndexChanged, this, &SearchFields::changed);
  auto* const leave = new QShortcut(Qt::Key_Escape, _search);
  leave->setContext(Qt::WidgetShortcut);
  connect(leave, &QShortcut::activated, this, &SearchFields::left);
}

QString SearchFields::text() const {
  return _search->text();
}

EntryModel::Filter SearchFields::filter() const {
  return _filters.value(_filter->currentIndex());
}

void SearchFields::offer(const Book& book) {
  const EntryModel::Filter chosen = filter();
  QMap<Known, int> confirmations;
  QMap<QString, int> reasons;
  for (int row = 0; row < book.size(); ++row) {
    const CheckState state = book.stateAt(row);
    if (saysConfirmation(state)) {
      ++confirmations[book.at(row).check.known];
    } else if (state == CheckState::Failed) {
      ++reasons[book.at(row).check.failure];
    }
  }
  if (chosen.kind == EntryModel::Filter::Confirmation) {
    confirmations[chosen.known] += 0;
  } else if (chosen.kind == EntryModel::Filter::Reason) {
    reasons[chosen.reason] += 0;
  }
  const QSignalBlocker silence(_filter);
  _filter->clear();
  _filters.clear();
  add(tr("All entries"), {});
  add(tr("To check"), {EntryModel::Filter::ToCheck});
  add(tr("Failed"), {EntryModel::Filter::Failed});
  const QString counted = QStringLiteral("%1 (%2)");
  if (book.shared() > 0 || chosen.kind == EntryModel::Filter::Shared) {
    add(counted.arg(tr("Several at one address")).arg(book.shared()), {EntryModel::Filter::Shared});
  }
  for (const Known known : kTold) {
    if (confirmations.contains(known)) {
      add(counted.arg(EntryModel::confirmationText(known)).arg(confirmations[known]),
          {EntryModel::Filter::Confirmation, known});
    }
  }
  for (auto reason = reasons.cbegin(); reason != reasons.cend(); ++reason) {
    add(tr("Failed: %1").arg(QString(reason.key()).append(QStringLiteral(" (%1)").arg(*reason))),
        {EntryModel::Filter::Reason, Known::NotTold, reason.key()});
  }
  _filter->setCurrentIndex(static_cast<int>(std::max<qsizetype>(0, _filters.indexOf(chosen))));
  _filter->view()->setMinimumWidth(
      std::min(_filter->view()->sizeHintForColumn(0) + kSearchWidth / 10, kMostListWidth));
}

void SearchFields::add(const QString& text, const EntryModel::Filter& filter) {
  _filter->addItem(text);
  _filter->setItemData(_filter->count() - 1, text, Qt::ToolTipRole);
  _filters.append(filter);
}

void SearchFields::show(const EntryModel::Filter& filter) {
  _search->clear();
  _filter->setCurrentIndex(static_cast<int>(std::max<qsizetype>(0, _filters.indexOf(filter))));
}

void SearchFields::beginSearch() {
  _search->setFocus(Qt::ShortcutFocusReason);
  _search->selectAll();
}

}  // namespace postwright::addressbook
