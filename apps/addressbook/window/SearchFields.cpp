#include "apps/addressbook/window/SearchFields.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QShortcut>

#include "apps/addressbook/widgets/ThemedIcon.h"

namespace postwright::addressbook {

namespace {

constexpr int kSearchWidth = 260;

}  // namespace

SearchFields::SearchFields(QWidget* parent)
    : QWidget(parent), _filter(new QComboBox(this)), _search(new QLineEdit(this)) {
  _filter->setObjectName(QStringLiteral("filter"));
  _filter->setAccessibleName(tr("Which entries are shown"));
  _filter->addItems({tr("All entries"), tr("To check"), tr("Failed")});
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
  return static_cast<EntryModel::Filter>(_filter->currentIndex());
}

void SearchFields::show(EntryModel::Filter filter) {
  _search->clear();
  _filter->setCurrentIndex(static_cast<int>(filter));
}

void SearchFields::beginSearch() {
  _search->setFocus(Qt::ShortcutFocusReason);
  _search->selectAll();
}

}  // namespace postwright::addressbook
