#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_ADDRESSBOOKWINDOW_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_ADDRESSBOOKWINDOW_H_

#include <QMainWindow>

#include "apps/addressbook/document/BookDocument.h"
#include "apps/addressbook/document/EntryModel.h"
#include "apps/addressbook/window/WindowActions.h"

class QSplitter;
class QStackedWidget;

namespace postwright::addressbook {

class AddressFixer;
class BookCounts;
class EmptyPage;
class EntryPanel;
class EntryTable;
class FileController;
class FixController;
class MessageBar;
class PrintController;
class SearchFields;
class StreetsController;

// The window of the program: an address book in a table, the selected entry beside it.
//
// Widgets and actions are found by object name: entryTable, labelEditor, searchField, and the names
// of WindowActions.
class AddressBookWindow : public QMainWindow {
  Q_OBJECT

 public:
  // `fixer` lives longer than the window.
  explicit AddressBookWindow(AddressFixer& fixer);
  ~AddressBookWindow() override;

  // The program's name in the user's language, with which window titles end.
  static QString programName() { return tr("Postwright Address Book"); }

  // Opens an address book in place of the present one, which is not asked about. False where it
  // could not be opened; the user was told.
  bool openPath(const QString& path);

  BookDocument& document() { return _document; }

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  QWidget* buildMiddle();
  void connectDocument();
  void connectActions();
  void connectFixing();
  void search();
  void showAll();
  void addEntry();
  void showTouched(const QList<int>& rows);
  void merge();
  void editPreferences();
  void takePreferences();
  void refresh();
  void refreshPages();
  void restoreLayout();

  AddressFixer& _fixer;
  BookDocument _document;
  EntryModel _model;
  WindowActions _actions;
  FileController* _files;
  FixController* _fixes;
  PrintController* _prints;
  EntryTable* _table;
  EntryPanel* _panel;
  QSplitter* _splitter = nullptr;
  QStackedWidget* _pages = nullptr;
  EmptyPage* _empty = nullptr;
  MessageBar* _message = nullptr;
  StreetsController* _streets = nullptr;
  SearchFields* _search;
  BookCounts* _counts;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_ADDRESSBOOKWINDOW_H_
