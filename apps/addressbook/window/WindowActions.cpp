#include "apps/addressbook/window/WindowActions.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QUndoStack>

#include "apps/addressbook/widgets/ThemedIcon.h"

namespace postwright::addressbook {

namespace {

constexpr int kToolIconSize = 22;

// An action named for its place in this class, so that tests and scripts find it.
QAction* make(QMainWindow* window, const char* name, const QString& text,
              const QKeySequence& keys = {}, const char* icon = nullptr) {
  auto* const action = new QAction(text, window);
  action->setObjectName(QLatin1String(name));
  action->setShortcut(keys);
  if (icon != nullptr) {
    action->setIcon(themedIcon(QLatin1String(icon)));
  }
  return action;
}

}  // namespace

WindowActions::WindowActions(QMainWindow* window, QUndoStack& undoStack) {
  makeFileMenu(window);
  makeEditMenu(window, undoStack);
  view = window->menuBar()->addMenu(tr("&View"));
  makeFixMenu(window);
  makeHelpMenu(window);
  makeToolBar(window);
}

void WindowActions::makeFileMenu(QMainWindow* window) {
  newBook = make(window, "newBook", tr("&New Address Book"), QKeySequence::New);
  open = make(window, "open", tr("&Open…"), QKeySequence::Open, "open");
  save = make(window, "save", tr("&Save"), QKeySequence::Save, "save");
  saveAs = make(window, "saveAs", tr("Save &As…"), Qt::CTRL | Qt::SHIFT | Qt::Key_S);
  columns = make(window, "columns", tr("&Columns…"));
  columns->setStatusTip(tr("Choose which columns of the file make the label"));
  exportSafely = make(window, "exportSafely", tr("&Export for Spreadsheets…"));
  exportSafely->setStatusTip(
      tr("Write a CSV copy in which no cell is run as a formula: those that begin with = + - or @ "
         "get an apostrophe in front"));
  exportMerge = make(window, "exportMerge", tr("Export for &Mail Merge…"));
  exportMerge->setStatusTip(
      tr("Write the entries that are shown as a CSV file with name, street, unit, city, state, ZIP "
         "code and confirmation in columns of their own"));
  print = make(window, "print", tr("&Print Labels…"), QKeySequence::Print, "print");
  listToAsk = make(window, "listToAsk", tr("Addresses to As&k About…"));
  listToAsk->setStatusTip(
      tr("Print, save or copy a list of the addresses that are shown and were turned down"));
  quit = make(window, "quit", tr("&Quit"));
  quit->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Q), QKeySequence(Qt::CTRL | Qt::Key_W)});
  QMenu* const menu = window->menuBar()->addMenu(tr("&File"));
  menu->addActions({newBook, open});
  recent = menu->addMenu(tr("Open &Recent"));
  menu->addSeparator();
  menu->addActions({save, saveAs});
  menu->addSeparator();
  menu->addActions({columns, exportSafely, exportMerge});
  menu->addSeparator();
  menu->addActions({print, listToAsk});
  menu->addSeparator();
  menu->addAction(quit);
}

void WindowActions::makeEditMenu(QMainWindow* window, QUndoStack& undoStack) {
  undo = undoStack.createUndoAction(window, tr("&Undo"));
  undo->setObjectName(QStringLiteral("undo"));
  undo->setShortcut(QKeySequence::Undo);
  undo->setIcon(themedIcon(QStringLiteral("undo")));
  undo->setIconText(tr("Undo"));
  redo = undoStack.createRedoAction(window, tr("&Redo"));
  redo->setObjectName(QStringLiteral("redo"));
  redo->setShortcuts(
      {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
  redo->setIcon(themedIcon(QStringLiteral("redo")));
  redo->setIconText(tr("Redo"));
  add = make(window, "add", tr("&Add Entry"), Qt::CTRL | Qt::SHIFT | Qt::Key_N, "add");
  edit = make(window, "edit", tr("E&dit Label"), Qt::Key_F2);
  remove = make(window, "remove", tr("Re&move Entries"), QKeySequence::Delete, "remove");
  merge = make(window, "merge", tr("Mer&ge Entries…"));
  merge->setStatusTip(tr("Make one entry of the selected ones, which have the same address"));
  selectAll = make(window, "selectAll", tr("Select A&ll"), QKeySequence::SelectAll);
  for (QAction* const ofTable : {edit, remove, selectAll}) {
    ofTable->setShortcutContext(Qt::WidgetShortcut);  // elsewhere these keys edit text
  }
  find = make(window, "find", tr("&Find"), QKeySequence::Find, "search");
  showAll = make(window, "showAll", tr("&Show All Entries"), Qt::CTRL | Qt::SHIFT | Qt::Key_F);
  preferences = make(window, "preferences", tr("&Preferences…"), Qt::CTRL | Qt::Key_Comma);
  preferences->setMenuRole(QAction::PreferencesRole);
  QMenu* const menu = window->menuBar()->addMenu(tr("&Edit"));
  menu->addActions({undo, redo});
  menu->addSeparator();
  menu->addActions({add, edit, remove, merge, selectAll});
  menu->addSeparator();
  menu->addActions({find, showAll});
  menu->addSeparator();
  menu->addAction(preferences);
}

void WindowActions::makeFixMenu(QMainWindow* window) {
  fix = make(window, "fix", tr("&Fix Addresses…"), Qt::Key_F7, "fix");
  fixSelected = make(window, "fixSelected", tr("Fix &Selected Addresses…"), Qt::CTRL | Qt::Key_F7);
  fixFailed = make(window, "fixFailed", tr("&Try Failed Addresses Again…"), Qt::SHIFT | Qt::Key_F7);
  fetchStreets = make(window, "fetchStreets", tr("Fetch Stree&ts…"));
  fetchStreets->setStatusTip(
      tr("Fetch the streets of a state or county, by which addresses are then checked"));
  QMenu* const menu = window->menuBar()->addMenu(tr("&Addresses"));
  menu->addActions({fix, fixSelected, fixFailed});
  menu->addSeparator();
  menu->addAction(fetchStreets);
}

void WindowActions::makeHelpMenu(QMainWindow* window) {
  about = make(window, "about", tr("&About Address Book"));
  about->setMenuRole(QAction::AboutRole);
  window->menuBar()->addMenu(tr("&Help"))->addAction(about);
}

void WindowActions::makeToolBar(QMainWindow* window) {
  toolBar = window->addToolBar(tr("Tools"));
  toolBar->setObjectName(QStringLiteral("tools"));
  toolBar->setMovable(false);
  toolBar->setIconSize(QSize(kToolIconSize, kToolIconSize));
  toolBar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  open->setIconText(tr("Open"));
  save->setIconText(tr("Save"));
  add->setIconText(tr("Add"));
  remove->setIconText(tr("Remove"));
  fix->setIconText(tr("Fix Addresses"));
  print->setIconText(tr("Print Labels"));
  toolBar->addActions({open, save});
  toolBar->addSeparator();
  toolBar->addActions({add, remove, undo, redo});
  toolBar->addSeparator();
  toolBar->addActions({fix, print});
}

}  // namespace postwright::addressbook
