#include "apps/addressbook/window/AddressBookWindow.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

#include "apps/addressbook/dialogs/PreferencesDialog.h"
#include "apps/addressbook/dialogs/PrintDialog.h"
#include "apps/addressbook/settings/Preferences.h"
#include "apps/addressbook/window/EmptyPage.h"
#include "apps/addressbook/window/EntryPanel.h"
#include "apps/addressbook/window/EntryTable.h"
#include "apps/addressbook/window/FileController.h"
#include "apps/addressbook/window/FixController.h"
#include "apps/addressbook/window/MessageBar.h"
#include "apps/addressbook/window/Theme.h"
#include "apps/addressbook/window/ThemedIcon.h"

namespace postwright::addressbook {

namespace {

const QString kGeometryKey = QStringLiteral("window/geometry");
const QString kSplitterKey = QStringLiteral("window/splitter");

constexpr QSize kUsualSize(1120, 700);
constexpr int kPanelWidth = 320;
constexpr int kSearchWidth = 260;

QString droppedFile(const QMimeData* data) {
  const QList<QUrl> urls = data->urls();
  return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

}  // namespace

AddressBookWindow::AddressBookWindow(AddressFixer& fixer)
    : _model(_document.book()),
      _actions(this, _document.undoStack()),
      _files(new FileController(_document, this)),
      _fixes(new FixController(_document, fixer, this)),
      _table(new EntryTable(_model, this)),
      _panel(new EntryPanel(_document, this)) {
  setObjectName(QStringLiteral("addressBookWindow"));
  setAcceptDrops(true);
  setUnifiedTitleAndToolBarOnMac(true);
  _table->setObjectName(QStringLiteral("entryTable"));
  _files->setRecentMenu(_actions.recent);
  setCentralWidget(buildMiddle());
  buildSearch();
  buildStatusBar();
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
  layout->addWidget(_splitter, 1);
  return middle;
}

void AddressBookWindow::buildSearch() {
  _filter = new QComboBox(this);
  _filter->setObjectName(QStringLiteral("filter"));
  _filter->setAccessibleName(tr("Which entries are shown"));
  _filter->addItems({tr("All entries"), tr("To check"), tr("Failed")});
  _search = new QLineEdit(this);
  _search->setObjectName(QStringLiteral("searchField"));
  _search->setAccessibleName(tr("Search"));
  _search->setPlaceholderText(tr("Search"));
  _search->setClearButtonEnabled(true);
  _search->addAction(themedIcon(QStringLiteral("search")), QLineEdit::LeadingPosition);
  _search->setMaximumWidth(kSearchWidth);
  auto* const fields = new QWidget(this);
  auto* const layout = new QHBoxLayout(fields);
  layout->addStretch(1);
  layout->addWidget(_filter);
  layout->addWidget(_search, 2);
  _actions.toolBar->addWidget(fields);
  connect(_search, &QLineEdit::textChanged, this, &AddressBookWindow::search);
  connect(_search, &QLineEdit::returnPressed, this, [this] { _table->setFocus(); });
  connect(_filter, &QComboBox::currentIndexChanged, this, &AddressBookWindow::search);
  auto* const leave = new QShortcut(Qt::Key_Escape, _search);
  leave->setContext(Qt::WidgetShortcut);
  connect(leave, &QShortcut::activated, this, &AddressBookWindow::showAll);
}

void AddressBookWindow::buildStatusBar() {
  _counts = new QLabel(this);
  _counts->setObjectName(QStringLiteral("counts"));
  _states = new QLabel(this);
  _states->setObjectName(QStringLiteral("states"));
  statusBar()->addWidget(_counts, 1);
  statusBar()->addPermanentWidget(_states);
}

void AddressBookWindow::connectDocument() {
  const Book& book = _document.book();
  for (const auto signal : {&Book::changed, &Book::inserted, &Book::removed}) {
    connect(&book, signal, this, &AddressBookWindow::refresh);
  }
  connect(&book, &Book::wasReset, this, [this] {
    _message->hide();
    showAll();
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
  _table->addActions({_actions.edit, _actions.remove, _actions.selectAll});
  connect(_actions.newBook, &QAction::triggered, _files, &FileController::newBook);
  connect(_actions.open, &QAction::triggered, _files, &FileController::open);
  connect(_actions.save, &QAction::triggered, _files, &FileController::save);
  connect(_actions.saveAs, &QAction::triggered, _files, &FileController::saveAs);
  connect(_actions.columns, &QAction::triggered, _files, &FileController::chooseColumns);
  connect(_actions.exportSafely, &QAction::triggered, _files,
          &FileController::exportForSpreadsheet);
  connect(_actions.print, &QAction::triggered, this, &AddressBookWindow::print);
  connect(_actions.quit, &QAction::triggered, this, &QWidget::close);
  connect(_actions.add, &QAction::triggered, this, &AddressBookWindow::addEntry);
  connect(_actions.edit, &QAction::triggered, _panel, &EntryPanel::beginEditing);
  connect(_actions.remove, &QAction::triggered, this,
          [this] { _document.remove(_table->selectedBookRows()); });
  connect(_actions.selectAll, &QAction::triggered, _table, &QTableView::selectAll);
  connect(_actions.find, &QAction::triggered, this, [this] {
    _search->setFocus(Qt::ShortcutFocusReason);
    _search->selectAll();
  });
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
  connect(_fixes, &FixController::told, this, [this](const QString& note, bool hasFailures) {
    if (!hasFailures) {
      _message->tell(note);
      return;
    }
    _message->tell(note, tr("Show the &Failed"), [this] {
      _search->clear();
      _filter->setCurrentIndex(static_cast<int>(EntryModel::Filter::Failed));
    });
  });
}

bool AddressBookWindow::openPath(const QString& path) {
  return _files->openPath(path);
}

void AddressBookWindow::search() {
  _model.search(_search->text(), static_cast<EntryModel::Filter>(_filter->currentIndex()));
  if (_table->selectedBookRows().isEmpty() && _model.rowCount() > 0) {
    _table->selectRow(0);
  }
}

void AddressBookWindow::showAll() {
  _search->clear();
  _filter->setCurrentIndex(static_cast<int>(EntryModel::Filter::All));
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

void AddressBookWindow::print() {
  const Book& book = _document.book();
  const PrintableLabels labels{labelsAt(book, _model.shownBookRows()),
                               labelsAt(book, _table->selectedBookRows())};
  PrintDialog dialog(labels, Preferences::load(), this);
  if (dialog.exec() == QDialog::Accepted) {
    dialog.preferences().save();
    takePreferences();
    _message->tell(dialog.note());
  }
}

void AddressBookWindow::editPreferences() {
  PreferencesDialog dialog(Preferences::load(), this);
  if (dialog.exec() == QDialog::Accepted) {
    dialog.preferences().save();
    takePreferences();
  }
}

void AddressBookWindow::takePreferences() {
  const Preferences preferences = Preferences::load();
  applyAppearance(preferences.appearance);
  _panel->setPreferences(preferences);
}

void AddressBookWindow::refresh() {
  const QList<int> selected = _table->selectedBookRows();
  const bool hasEntries = _document.book().size() > 0;
  setWindowTitle(tr("%1[*] — Address Book").arg(_document.title()));
  setWindowModified(!_document.undoStack().isClean());
  _panel->showRows(selected);
  _actions.columns->setEnabled(_document.file() != nullptr &&
                               _document.file()->kind() == BookKind::Csv);
  _actions.edit->setEnabled(selected.size() == 1);
  _actions.remove->setEnabled(!selected.isEmpty());
  _actions.fixSelected->setEnabled(!selected.isEmpty());
  _actions.fixFailed->setEnabled(_document.book().count(CheckState::Failed) > 0);
  for (QAction* const action : {_actions.exportSafely, _actions.fix, _actions.selectAll}) {
    action->setEnabled(hasEntries);
  }
  _actions.print->setEnabled(_model.rowCount() > 0);
  refreshPages();
  refreshStatus(selected.size());
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
                    tr("Open a CSV, vCard or address book file, or drop one here.\nYou can also "
                       "begin with Edit > Add Entry."),
                    _actions.open);
  } else {
    _empty->explain(tr("“%1” has no entries").arg(_document.title()), tr("Give it its first one."),
                    _actions.add);
  }
}

void AddressBookWindow::refreshStatus(qsizetype selected) {
  const Book& book = _document.book();
  QStringList counts;
  counts += _model.rowCount() == book.size()
                ? tr("%n entries", nullptr, book.size())
                : tr("%1 of %n entries", nullptr, book.size()).arg(_model.rowCount());
  if (selected > 1) {
    counts += tr("%n selected", nullptr, static_cast<int>(selected));
  }
  _counts->setText(counts.join(QStringLiteral(", ")));
  _states->setVisible(book.size() > 0);
  const int toCheck = book.count(CheckState::NotChecked) + book.count(CheckState::DueAgain);
  _states->setText(QStringList({tr("%n right", nullptr, book.count(CheckState::Right)),
                                tr("%n to check", nullptr, toCheck),
                                tr("%n failed", nullptr, book.count(CheckState::Failed))})
                       .join(QStringLiteral("   ")));
}

void AddressBookWindow::restoreLayout() {
  const QSettings settings;
  if (!restoreGeometry(settings.value(kGeometryKey).toByteArray())) {
    resize(kUsualSize);
  }
  if (!_splitter->restoreState(settings.value(kSplitterKey).toByteArray())) {
    _splitter->setSizes({width() - kPanelWidth, kPanelWidth});
  }
}

void AddressBookWindow::closeEvent(QCloseEvent* event) {
  if (!_files->mayLeave()) {
    event->ignore();
    return;
  }
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
