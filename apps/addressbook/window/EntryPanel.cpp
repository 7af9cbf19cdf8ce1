#include "apps/addressbook/window/EntryPanel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QShortcut>
#include <QVBoxLayout>

#include "apps/addressbook/document/EntryModel.h"
#include "apps/addressbook/settings/Preferences.h"
#include "apps/addressbook/widgets/LabelEditor.h"
#include "apps/addressbook/widgets/LabelPreview.h"
#include "apps/addressbook/widgets/ThemedIcon.h"
#include "apps/tables/LabelText.h"

namespace postwright::addressbook {

namespace {

constexpr int kIconSize = 16;
constexpr int kMargin = 12;

QLabel* makeCaption(const QString& text, QWidget* parent) {
  auto* const caption = new QLabel(text, parent);
  QFont font = caption->font();
  font.setBold(true);
  caption->setFont(font);
  return caption;
}

}  // namespace

EntryPanel::EntryPanel(BookDocument& document, QWidget* parent)
    : QWidget(parent),
      _document(document),
      _editor(new LabelEditor(this)),
      _stateIcon(new QLabel(this)),
      _stateText(new QLabel(this)),
      _preview(new LabelPreview(this)),
      _sheetTitle(new QLabel(this)) {
  _editor->setObjectName(QStringLiteral("labelEditor"));
  _editor->setAccessibleName(tr("Lines of the label"));
  _stateText->setTextFormat(Qt::PlainText);
  _stateText->setObjectName(QStringLiteral("stateText"));
  _stateText->setWordWrap(true);
  _sheetTitle->setForegroundRole(QPalette::PlaceholderText);
  auto* const caption = makeCaption(tr("&Label"), this);
  caption->setBuddy(_editor);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->addWidget(caption);
  layout->addWidget(_editor, 1);
  layout->addWidget(buildState());
  layout->addSpacing(kMargin);
  layout->addWidget(makeCaption(tr("On paper"), this));
  layout->addWidget(_preview);
  layout->addWidget(_sheetTitle);
  layout->addStretch(1);
  connect(_editor, &LabelEditor::typed, this, [this](const QString& text) {
    if (_rows.size() == 1) {
      _document.edit(_rows.first(), tables::tidyLabel(text));
    }
  });
  connect(_editor, &LabelEditor::left, &_document, &BookDocument::endEdit);
  connect(&_document.book(), &Book::changed, this, &EntryPanel::refresh);
  for (const QKeySequence& keys :
       {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_Return)}) {
    auto* const done = new QShortcut(keys, _editor);
    done->setContext(Qt::WidgetShortcut);
    connect(done, &QShortcut::activated, this, &EntryPanel::doneEditing);
  }
  showRows({});
}

QWidget* EntryPanel::buildState() {
  auto* const state = new QWidget(this);
  auto* const layout = new QHBoxLayout(state);
  layout->setContentsMargins(0, 0, 0, 0);
  _stateIcon->setFixedSize(kIconSize, kIconSize);
  layout->addWidget(_stateIcon, 0, Qt::AlignTop);
  layout->addWidget(_stateText, 1);
  return state;
}

void EntryPanel::showRows(const QList<int>& rows) {
  if (rows != _rows) {
    _document.endEdit();
  }
  _rows = rows;
  refresh();
}

void EntryPanel::refresh() {
  const bool isOne = _rows.size() == 1 && _rows.first() < _document.book().size();
  _editor->setEnabled(isOne);
  const Entry entry = isOne ? _document.book().at(_rows.first()) : Entry{};
  // While the user types, blanks at the end of a line stay where they are.
  if (tables::tidyLabel(_editor->toPlainText()) != entry.label || !isOne) {
    _editor->showText(entry.label);
  }
  _editor->setPlaceholderText(isOne ? tr("Name\nStreet\nCity, state and ZIP code") : QString());
  _preview->setLabel(entry.label);
  const CheckState state = isOne ? _document.book().stateAt(_rows.first()) : CheckState::NotChecked;
  _stateIcon->setVisible(isOne);
  _stateIcon->setPixmap(stateIcon(state).pixmap(kIconSize));
  _stateText->setText(
      isOne             ? EntryModel::stateText(entry, state)
      : _rows.isEmpty() ? tr("No entry is selected.")
                        : tr("%n entries are selected.", nullptr, static_cast<int>(_rows.size())));
}

void EntryPanel::setPreferences(const Preferences& preferences) {
  _preview->setSheet(preferences.print.sheet, preferences.print.style);
  _sheetTitle->setText(preferences.print.sheet.title());
  refresh();  // the palette may have changed
}

void EntryPanel::beginEditing() {
  _editor->setFocus(Qt::ShortcutFocusReason);
  _editor->moveCursor(QTextCursor::End);
}

}  // namespace postwright::addressbook
