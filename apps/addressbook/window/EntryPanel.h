#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_ENTRYPANEL_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_ENTRYPANEL_H_

#include <QWidget>

#include "apps/addressbook/document/BookDocument.h"

class QLabel;

namespace postwright::addressbook {

class LabelEditor;
class LabelPreview;
struct Preferences;

// The selected entry beside the table: its lines to edit, what the service said of it, and how it
// will look on paper.
class EntryPanel : public QWidget {
  Q_OBJECT

 public:
  // `document` lives longer than the panel.
  explicit EntryPanel(BookDocument& document, QWidget* parent = nullptr);

  // Shows the entries at these rows of the book: one to edit, or how many there are.
  void showRows(const QList<int>& rows);

  void setPreferences(const Preferences& preferences);

  // Turns the keyboard to the lines.
  void beginEditing();

 signals:
  // The user is done with the lines (Escape, Control and Return).
  void doneEditing();

 private:
  QWidget* buildState();
  void refresh();

  BookDocument& _document;
  QList<int> _rows;
  LabelEditor* _editor;
  QLabel* _stateIcon;
  QLabel* _stateText;
  LabelPreview* _preview;
  QLabel* _sheetTitle;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_ENTRYPANEL_H_
