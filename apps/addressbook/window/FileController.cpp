#include "apps/addressbook/window/FileController.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>

#include "apps/addressbook/dialogs/ColumnDialog.h"
#include "apps/addressbook/document/BookDocument.h"
#include "apps/addressbook/formats/BookFormats.h"
#include "apps/addressbook/formats/csv/CsvFile.h"
#include "apps/addressbook/settings/Preferences.h"
#include "apps/addressbook/window/Question.h"
#include "apps/tables/FileError.h"

namespace postwright::addressbook {

namespace {

// The cursor tells that the program works, for as long as the object lives.
class BusyCursor {
 public:
  BusyCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  BusyCursor(const BusyCursor&) = delete;
  BusyCursor& operator=(const BusyCursor&) = delete;
  ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
};

QString shown(const QString& path) {
  return QFileInfo(path).fileName();
}

}  // namespace

FileController::FileController(BookDocument& document, QWidget* window)
    : QObject(window), _document(document), _window(window) {}

void FileController::setRecentMenu(QMenu* menu) {
  connect(menu, &QMenu::aboutToShow, this, [this, menu] { fillRecentMenu(menu); });
}

void FileController::fillRecentMenu(QMenu* menu) {
  menu->clear();
  const QStringList files = RecentFiles::list();
  for (qsizetype place = 0; place < files.size(); ++place) {
    const QString& path = files[place];
    QString name = shown(path);
    name.replace(QLatin1Char('&'), QStringLiteral("&&"));
    QAction* const action = menu->addAction(QStringLiteral("&%1 %2").arg(place + 1).arg(name));
    action->setToolTip(path);
    connect(action, &QAction::triggered, this, [this, path] {
      if (mayLeave()) {
        openPath(path);
      }
    });
  }
  if (files.isEmpty()) {
    menu->addAction(tr("No recent files"))->setEnabled(false);
    return;
  }
  menu->addSeparator();
  connect(menu->addAction(tr("&Clear List")), &QAction::triggered, this, &RecentFiles::clear);
}

bool FileController::mayLeave() {
  if (_document.undoStack().isClean()) {
    return true;
  }
  Question question(_window, tr("Save the changes to “%1”?").arg(_document.title()),
                    tr("If you do not save them, they are lost."));
  QAbstractButton* const save = question.addStep(tr("&Save"));
  QAbstractButton* const discard = question.addStep(tr("&Discard Changes"));
  question.addWayOut(tr("Cancel"));
  const QAbstractButton* const answer = question.ask();
  return answer == save ? this->save() : answer == discard;
}

void FileController::newBook() {
  if (mayLeave()) {
    _document.clear();
  }
}

void FileController::open() {
  if (!mayLeave()) {
    return;
  }
  const QString path = QFileDialog::getOpenFileName(
      _window, tr("Open an address book"), folder(),
      tr("Address books (*.pwbook *.csv *.tsv *.txt *.vcf *.vcard);;All files (*)"));
  if (!path.isEmpty()) {
    openPath(path);
  }
}

bool FileController::openPath(const QString& path) {
  try {
    std::unique_ptr<BookFile> file;
    {
      const BusyCursor busy;
      file = openBookFile(path);
    }
    if (file->kind() == BookKind::Csv && !knowsColumns(static_cast<CsvFile&>(*file), path)) {
      return false;
    }
    const BusyCursor busy;
    _document.begin(std::move(file), path);
    RecentFiles::add(path);
    return true;
  } catch (const tables::FileError& error) {
    RecentFiles::remove(path);
    showError(tr("“%1” cannot be opened.").arg(shown(path)), error);
    return false;
  }
}

bool FileController::knowsColumns(CsvFile& file, const QString& path) {
  return file.hasOwnColumns() || ColumnMemory::find(file.firstLine()) || askColumns(file, path);
}

bool FileController::askColumns(CsvFile& file, const QString& path) {
  ColumnDialog dialog(file, shown(path), _window);
  if (dialog.exec() != QDialog::Accepted) {
    return false;
  }
  ColumnMemory::remember(file.firstLine(), file.choice());
  return true;
}

void FileController::chooseColumns() {
  if (!_document.file() || _document.file()->kind() != BookKind::Csv || !mayLeave()) {
    return;
  }
  const QString path = _document.path();
  try {
    // Read once more, so that the choice does not reach a book that the user then keeps.
    std::unique_ptr<BookFile> file = openBookFile(path);
    if (askColumns(static_cast<CsvFile&>(*file), path)) {
      _document.begin(std::move(file), path);
    }
  } catch (const tables::FileError& error) {
    showError(tr("“%1” cannot be opened.").arg(shown(path)), error);
  }
}

bool FileController::save() {
  if (_document.path().isEmpty()) {
    return saveAs();
  }
  return mayOverwrite() && saveTo(_document.path());
}

bool FileController::saveAs() {
  QFileDialog dialog(_window, tr("Save the address book"), folder());
  const QStringList filters = {tr("Address book (*.pwbook)"), tr("CSV file (*.csv)"),
                               tr("vCard file (*.vcf)")};
  const QStringList suffixes = {QStringLiteral("pwbook"), QStringLiteral("csv"),
                                QStringLiteral("vcf")};
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilters(filters);
  const QString path = _document.path();
  const auto kind = suffixes.indexOf(QFileInfo(path).suffix());
  dialog.selectNameFilter(filters[std::max<qsizetype>(kind, 0)]);
  dialog.setDefaultSuffix(suffixes[std::max<qsizetype>(kind, 0)]);
  connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
    dialog.setDefaultSuffix(suffixes.value(filters.indexOf(filter)));
  });
  dialog.selectFile(path.isEmpty() ? tr("Address book") : shown(path));
  if (dialog.exec() != QDialog::Accepted) {
    return false;
  }
  const QString chosen = dialog.selectedFiles().first();
  return mayLeaveBehind(chosen) && saveTo(chosen);
}

bool FileController::saveTo(const QString& path) {
  try {
    const BusyCursor busy;
    const QStringList notes = _document.save(path);
    RecentFiles::add(path);
    emit told(notes.join(QLatin1Char(' ')));
    return true;
  } catch (const tables::FileError& error) {
    showError(tr("“%1” cannot be saved.").arg(shown(path)), error);
    return false;
  }
}

bool FileController::mayOverwrite() {
  if (!_document.isChangedOnDisk()) {
    return true;
  }
  Question question(
      _window,
      tr("Another program has changed “%1” since it was opened here.").arg(_document.title()),
      tr("If you save over it, what the other program wrote is lost. You can save "
         "under another name and compare."));
  QAbstractButton* const elsewhere = question.addStep(tr("Save &As…"));
  QAbstractButton* const over = question.addStep(tr("Save &Over It"));
  question.addWayOut(tr("Cancel"));
  const QAbstractButton* const answer = question.ask();
  if (answer == elsewhere) {
    saveAs();
  }
  return answer == over;
}

bool FileController::mayLeaveBehind(const QString& path) {
  if (!_document.leavesBehind(path)) {
    return true;
  }
  Question question(
      _window, tr("Save the labels to another kind of file?"),
      tr("“%1” may hold more than labels, such as telephone numbers. That stays in the "
         "old file, which is kept as it is; “%2” gets the labels alone.")
          .arg(_document.title(), shown(path)));
  QAbstractButton* const save = question.addStep(tr("&Save the Labels"));
  question.addWayOut(tr("Cancel"));
  return question.ask() == save;
}

void FileController::exportForSpreadsheet() {
  QString path = QFileDialog::getSaveFileName(_window, tr("Export for spreadsheets"), folder(),
                                              tr("CSV file (*.csv)"));
  if (path.isEmpty()) {
    return;
  }
  if (QFileInfo(path).suffix().isEmpty()) {
    path += QStringLiteral(".csv");
  }
  try {
    const BusyCursor busy;
    const bool isCsv = _document.file() && _document.file()->kind() == BookKind::Csv;
    CsvFile fresh;
    const CsvFile& file = isCsv ? static_cast<const CsvFile&>(*_document.file()) : fresh;
    QStringList notes{tr("Exported to “%1”.").arg(shown(path))};
    notes += file.writeForSpreadsheet(path, _document.book().entries());
    emit told(notes.join(QLatin1Char(' ')));
  } catch (const tables::FileError& error) {
    showError(tr("“%1” cannot be saved.").arg(shown(path)), error);
  }
}

void FileController::showError(const QString& what, const tables::FileError& error) {
  Question question(_window, what, error.message());
  question.addWayOut(tr("Close"));
  question.ask();
}

QString FileController::folder() const {
  return _document.path().isEmpty()
             ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
             : QFileInfo(_document.path()).absolutePath();
}

}  // namespace postwright::addressbook
