#include "apps/addressbook/window/AddressBookWindow.h"

#include <QCloseEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

#include "apps/addressbook/dialogs/MergeDialog.h"
#include "apps/addressbook/dialogs/PreferencesDialog.h"
#include "apps/addressbook/settings/Preferences.h"
#include "apps/addressbook/widgets/EmptyPage.h"
#include "apps/addressbook/widgets/MessageBar.h"
#include "apps/addressbook/widgets/Theme.h"
#include "apps/addressbook/widgets/ThemedIcon.h"
#include "apps/addressbook/window/BookCounts.h"
#include "apps/addressbook/window/EntryPanel.h"
#include "apps/addressbook/window/EntryTable.h"
#include "apps/addressbook/window/FileController.h"
#include "apps/addressbook/window/FixController.h"
#include "apps/addressbook/window/PrintController.h"
#include "apps/addressbook/window/SearchFields.h"
#include "apps/addressbook/window/SortMenu.h"
#include "apps/addressbook/window/StreetsController.h"

namespace postwright::addressbook {

namespace {

const QString kGeometryKey = QStringLiteral("window/geometry");
const QString kSplitterKey = QStringLiteral("window/splitter");

constexpr QSize kUsualSize(1120, 700);
constexpr int kPanelWidth = 320;

QString droppedFile(const QMimeData* data) {
  const QList<QUrl> urls = data->urls();
  return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

}  // namespace

AddressBookWindow::AddressBookWindow(AddressFixer& fixer)
    : _fixer(fixer),
      _model(_document.book()),
      _actions(this, _document.undoStack()),
      _files(new FileController(_document, this)),
      _fixes(new FixController(_document, fixer, this)),
      _prints(new PrintController(_document.book(), this)),
      _table(new EntryTable(_model, this)),
      _panel(new EntryPanel(_document, this)),
      _search(new SearchFields(this)),
      _counts(new BookCounts(statusBar())) {
  setObjectName(QStringLiteral("addressBookWindow"));
  setAcceptDrops(true);
  setUnifiedTitleAndToolBarOnMac(true);
  _table->setObjectName(QStringLiteral("entryTable"));
  _files->setRecentMenu(_actions.recent);
  new SortMenu(_actions.view, _model, *_table);
  setCentralWidget(buildMiddle());
  _actions.toolBar->addWidget(_search);
  connectDocument();
  connectActions();
  connectFixing();
  takePreferences();
  restoreLayout();
  refresh();
}

AddressBookWindow::~AddressBookWindow() {
  // The table and the panel look at the document, which goes before they would.
  delete takeCentralWidget();
}

QWidget* AddressBookWindow::buildMiddle() {
  _message = new MessageBar(this);
  auto* const streets = new MessageBar(this);
  streets->setObjectName(QStringLiteral("streetsBar"));
  _streets = new StreetsController(_fixer, streets, this);
  _empty = new EmptyPage(this);
  _pages = new QStackedWidget(this);
  _pages->addWidget(_table);
  _pages->addWidget(_empty);
  _splitter = new QSplitter(this);
  _splitter->addWidget(_pages);
  _splitter->addWidget(_panel);
  _splitter->setStretchFactor(0, 1);
  _splitter->setCollapsible(0, false);
  _splitter->setChildrenCollapsible(false);
  auto* const middle = new QWidget(this);
  auto* const layout = new QVBoxLayout(middle);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(_message);
  layout->addWidget(streets);
  layout->addWidget(_splitter, 1);
  return middle;
}

void AddressBookWindow::connectDocument() {
  const Book& book = _document.book();
  for (const auto signal : {&Book::changed, &Book::inserted, &Book::removed}) {
    connect(&book, signal, this, &AddressBookWindow::refresh);
    connect(&book, signal, this, [this, &book] { _search->offer(book); });
  }
  connect(&book, &Book::wasReset, this, [this, &book] {
    _message->hide();
    showAll();
    _search->offer(book);
    if (_model.rowCount() > 0) {
      _table->selectRow(0);
    }
    refresh();
  });
  connect(&_document, &BookDocument::titleChanged, this, &AddressBookWindow::refresh);
  connect(&_document, &BookDocument::touched, this, &AddressBookWindow::showTouched);
  connect(&_document.undoStack(), &QUndoStack::cleanChanged, this,
          [this](bool isClean) { setWindowModified(!isClean); });
  connect(&_model, &EntryModel::layoutChanged, this, &AddressBookWindow::refresh);
  connect(_table, &EntryTable::selectedRowsChanged, this, &AddressBookWindow::refresh);
  connect(_table, &EntryTable::editRequested, _panel, &EntryPanel::beginEditing);
  connect(_search, &SearchFields::changed, this, &AddressBookWindow::search);
  connect(_search, &SearchFields::entered, this, [this] { _table->setFocus(); });
  connect(_search, &SearchFields::left, this, &AddressBookWindow::showAll);
  connect(_panel, &EntryPanel::doneEditing, this, [this] { _table->setFocus(); });
  connect(_files, &FileController::told, this, [this](const QString& note) {
    if (note.isEmpty()) {
      _message->hide();
    } else {
      _message->tell(note);
    }
  });
}

void AddressBookWindow::connectActions() {
  _table->addActions(
      {_actions.edit, _actions.remove, _actions.merge, _actions.fixSelected, _actions.selectAll});
  _table->setContextMenuPolicy(Qt::ActionsContextMenu);
  connect(_actions.newBook, &QAction::triggered, _files, &FileController::newBook);
  connect(_actions.open, &QAction::triggered, _files, &FileController::open);
  connect(_actions.save, &QAction::triggered, _files, &FileController::save);
  connect(_actions.saveAs, &QAction::triggered, _files, &FileController::saveAs);
  connect(_actions.columns, &QAction::triggered, _files, &FileController::chooseColumns);
  connect(_actions.exportSafely, &QAction::triggered, _files,
          &FileController::exportForSpreadsheet);
  connect(_actions.exportMerge, &QAction::triggered, this,
          [this] { _files->exportForMailMerge(_model.shownBookRows()); });
  connect(_actions.print, &QAction::triggered, this,
          [this] { _prints->printLabels(_model.shownBookRows(), _table->selectedBookRows()); });
  connect(_actions.listToAsk, &QAction::triggered, this,
          [this] { _prints->listToAsk(_model.shownBookRows()); });
  connect(_prints, &PrintController::told, _message,
          [this](const QString& note) { _message->tell(note); });
  connect(_prints, &PrintController::preferencesChanged, this, &AddressBookWindow::takePreferences);
  connect(_actions.quit, &QAction::triggered, this, &QWidget::close);
  connect(_actions.add, &QAction::triggered, this, &AddressBookWindow::addEntry);
  connect(_actions.edit, &QAction::triggered, _panel, &EntryPanel::beginEditing);
  connect(_actions.remove, &QAction::triggered, this,
          [this] { _document.remove(_table->selectedBookRows()); });
  connect(_actions.merge, &QAction::triggered, this, &AddressBookWindow::merge);
  connect(_actions.selectAll, &QAction::triggered, _table, &QTableView::selectAll);
  connect(_actions.find, &QAction::triggered, _search, &SearchFields::beginSearch);
  connect(_actions.showAll, &QAction::triggered, this, &AddressBookWindow::showAll);
  connect(_actions.preferences, &QAction::triggered, this, &AddressBookWindow::editPreferences);
  connect(_actions.about, &QAction::triggered, this, [this] {
    QMessageBox::about(this, tr("About Address Book"),
                       tr("Address Book %1, a part of Postwright.\n\nCorrects US postal addresses "
                          "and prints them on label sheets.")
                           .arg(QCoreApplication::applicationVersion()));
  });
}

void AddressBookWindow::connectFixing() {
  connect(_actions.fix, &QAction::triggered, this,
          [this] { _fixes->fix(_table->selectedBookRows()); });
  connect(_actions.fixSelected, &QAction::triggered, this,
          [this] { _fixes->fixSelected(_table->selectedBookRows()); });
  connect(_actions.fixFailed, &QAction::triggered, _fixes, &FixController::fixFailed);
  connect(_actions.fetchStreets, &QAction::triggered, _streets, &StreetsController::fetch);
  connect(_streets, &StreetsController::told, _message,
          qOverload<const QString&>(&MessageBar::tell));
  connect(_fixes, &FixController::told, this, [this](const QString& note, bool hasFailures) {
    if (!hasFailures) {
      _message->tell(note);
      return;
    }
    _message->tell(note, tr("Show the &Failed"),
                   [this] { _search->show({EntryModel::Filter::Failed}); });
  });
}

bool AddressBookWindow::openPath(const QString& path) {
  return _files->openPath(path);
}

void AddressBookWindow::search() {
  _model.search(_search->text(), _search->filter());
  if (_table->selectedBookRows().isEmpty() && _model.rowCount() > 0) {
    _table->selectRow(0);
  }
}

void AddressBookWindow::showAll() {
  _search->show({});
  _table->setFocus();
}

void AddressBookWindow::addEntry() {
  showAll();
  _document.add(QString());
  _panel->beginEditing();
}

void AddressBookWindow::showTouched(const QList<int>& rows) {
  _table->selectBookRows(rows);
  refresh();
}

void AddressBookWindow::merge() {
  const QList<int> rows = _table->selectedBookRows();
  MergeDialog dialog(_document.book(), rows, this);
  if (dialog.exec() == QDialog::Accepted) {
    _document.merge(rows, dialog.label());
  }
}

void AddressBookWindow::editPreferences() {
  PreferencesDialog dialog(Preferences::load(), _fixer, this);
  if (dialog.exec() == QDialog::Accepted) {
    dialog.preferences().save();
    takePreferences();
  }
}

void AddressBookWindow::takePreferences() {
  const Preferences preferences = Preferences::load();
  applyAppearance(preferences.appearance);
  _panel->setPreferences(preferences);
  _streets->tellMissing();
}

void AddressBookWindow::refresh() {
  const QList<int> selected = _table->selectedBookRows();
  const bool hasEntries = _document.book().size() > 0;
  setWindowTitle(tr("%1[*] — %2").arg(_document.title(), programName()));
  setWindowModified(!_document.undoStack().isClean());
  _panel->showRows(selected);
  _actions.columns->setEnabled(_document.file() != nullptr &&
                               _document.file()->columns() != nullptr);
  _actions.edit->setEnabled(selected.size() == 1);
  _actions.remove->setEnabled(!selected.isEmpty());
  _actions.merge->setEnabled(_document.book().haveOneAddress(selected));
  _actions.fixSelected->setEnabled(!selected.isEmpty());
  _actions.fixFailed->setEnabled(_document.book().count(CheckState::Failed) > 0);
  for (QAction* const action : {_actions.exportSafely, _actions.fix, _actions.selectAll}) {
    action->setEnabled(hasEntries);
  }
  for (QAction* const action : {_actions.print, _actions.listToAsk}) {
    action->setEnabled(_model.rowCount() > 0);
  }
  _actions.exportMerge->setEnabled(_model.rowCount() > 0);
  refreshPages();
  _counts->show(_document.book(), _model.rowCount(), static_cast<int>(selected.size()));
}

void AddressBookWindow::refreshPages() {
  const bool isEmpty = _model.rowCount() == 0;
  _pages->setCurrentWidget(isEmpty ? static_cast<QWidget*>(_empty) : _table);
  _panel->setVisible(!isEmpty);
  if (!isEmpty) {
    return;
  }
  if (_model.isSearching() && _document.book().size() > 0) {
    _empty->explain(tr("Nothing found"), tr("No entry is what you search for."), _actions.showAll);
  } else if (_document.path().isEmpty()) {
    _empty->explain(tr("No address book is open"),
                    tr("Open a CSV file, a workbook, vCards or an address book, or drop one "
                       "here.\nYou can also "
                       "begin with Edit > Add Entry."),
                    _actions.open);
  } else {
    _empty->explain(tr("“%1” has no entries").arg(_document.title()), tr("Give it its first one."),
                    _actions.add);
  }
}

void AddressBookWindow::restoreLayout() {
  const QSettings settings;
  if (!restoreGeometry(settings.value(kGeometryKey).toByteArray())) {
    resize(kUsualSize.boundedTo(screen()->availableSize()));
  }
  if (!_splitter->restoreState(settings.value(kSplitterKey).toByteArray())) {
    _splitter->setSizes({width() - kPanelWidth, kPanelWidth});
  }
}

// The user may have been away to bring streets.
void AddressBookWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
    _streets->tellMissing();
  }
}

void AddressBookWindow::closeEvent(QCloseEvent* event) {
  if (!_files->mayLeave()) {
    event->ignore();
    return;
  }
  _streets->leave();
  QSettings settings;
  settings.setValue(kGeometryKey, saveGeometry());
  settings.setValue(kSplitterKey, _splitter->saveState());
  event->accept();
}

void AddressBookWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!droppedFile(event->mimeData()).isEmpty()) {
    event->acceptProposedAction();
  }
}

void AddressBookWindow::dropEvent(QDropEvent* event) {
  const QString path = droppedFile(event->mimeData());
  event->acceptProposedAction();
  if (_files->mayLeave()) {
    openPath(path);
  }
}

}  // namespace postwright::addressbook
