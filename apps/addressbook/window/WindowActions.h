#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_WINDOWACTIONS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_WINDOWACTIONS_H_

#include <QCoreApplication>

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;
class QUndoStack;

namespace postwright::addressbook {

// Everything that can be done in the window, each with its name, key and place in the menus. What
// it does is connected elsewhere.
class WindowActions {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::WindowActions)

 public:
  // Makes the actions as children of `window` and puts them into its menu bar. The tool bar is the
  // caller's to complete.
  WindowActions(QMainWindow* window, QUndoStack& undoStack);

  QAction* newBook;
  QAction* open;
  QMenu* recent;
  QAction* save;
  QAction* saveAs;
  QAction* columns;
  QAction* exportSafely;
  QAction* exportMerge;
  QAction* print;
  QAction* listToAsk;
  QAction* quit;

  QAction* undo;
  QAction* redo;
  QAction* add;
  // The keys of these three count in the table alone, once they are among its actions.
  QAction* edit;
  QAction* remove;
  QAction* merge;
  QAction* selectAll;
  QAction* find;
  QAction* showAll;
  QAction* preferences;

  QMenu* view;

  QAction* fix;
  QAction* fixSelected;
  QAction* fixFailed;
  QAction* fetchStreets;

  QAction* about;

  QToolBar* toolBar;

 private:
  void makeFileMenu(QMainWindow* window);
  void makeEditMenu(QMainWindow* window, QUndoStack& undoStack);
  void makeFixMenu(QMainWindow* window);
  void makeHelpMenu(QMainWindow* window);
  void makeToolBar(QMainWindow* window);
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_WINDOWACTIONS_H_
