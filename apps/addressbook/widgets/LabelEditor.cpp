#include "apps/addressbook/widgets/LabelEditor.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTextCursor>
#include <algorithm>

namespace postwright::addressbook {

LabelEditor::LabelEditor(QWidget* parent) : QPlainTextEdit(parent) {
  setUndoRedoEnabled(false);
  setTabChangesFocus(true);
  setLineWrapMode(QPlainTextEdit::NoWrap);
  connect(this, &QPlainTextEdit::textChanged, this, [this] { emit typed(toPlainText()); });
}

void LabelEditor::showText(const QString& text) {
  if (text == toPlainText()) {
    return;
  }
  const int place = textCursor().position();
  {
    const QSignalBlocker blocker(this);
    setPlainText(text);
  }
  QTextCursor cursor = textCursor();
  cursor.setPosition(std::min(place, static_cast<int>(toPlainText().size())));
  setTextCursor(cursor);
}

bool LabelEditor::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
      event->ignore();
      return true;
    }
  }
  return QPlainTextEdit::event(event);
}

void LabelEditor::focusOutEvent(QFocusEvent* event) {
  QPlainTextEdit::focusOutEvent(event);
  emit left();
}

}  // namespace postwright::addressbook
