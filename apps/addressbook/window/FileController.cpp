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
#include "apps/addressbook/lists/MergeFile.h"
#include "apps/addressbook/settings/Preferences.h"
#include "apps/addressbook/widgets/Question.h"
#include "apps/tables/FileError.h"
#include "apps/tables/ReplacementFile.h"

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

QString openFilter() {
  QStringList patterns;
  for (const BookFormat* const format : bookFormats()) {
    for (const QString& ending : format->endings) {
      patterns.append(QStringLiteral("*.") + ending);
    }
  }
  return FileController::tr("Address books (%1);;All files (*)")
      .arg(patterns.join(QLatin1Char(' ')));
}

QList<const BookFormat*> writableFormats() {
  QList<const BookFormat*> formats = bookFormats();
  formats.removeIf([](const BookFormat* format) { return !format->isWritable(); });
  return formats;
}

// A name without one of the kind's endings gets the usual one: what it has may be part of the name,
// as in "St. Brigid list".
QString withEnding(const QString& path, const BookFormat& format) {
  const bool hasEnding = format.endings.contains(QFileInfo(path).suffix().toLower());
  return hasEnding ? path : path + QLatin1Char('.') + format.endings.first();
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
  const QString path =
      QFileDialog::getOpenFileName(_window, tr("Open an address book"), folder(), openFilter());
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
    if (!knowsColumns(*file, path)) {
      return false;
    }
    const QStringList notes = file->notes();
    const BusyCursor busy;
    _document.begin(std::move(file), path);
    RecentFiles::add(path);
    emit told(notes.join(QLatin1Char(' ')));
    return true;
  } catch (const tables::FileError& error) {
    RecentFiles::remove(path);
    showError(tr("“%1” cannot be opened.").arg(shown(path)), error);
    return false;
  }
}

bool FileController::knowsColumns(BookFile& file, const QString& path) {
  ColumnedFile* const columns = file.columns();
  return columns == nullptr || !columns->needsChoice() || askColumns(*columns, path);
}

bool FileController::askColumns(ColumnedFile& columns, const QString& path) {
  ColumnDialog dialog(columns, shown(path), _window);
  if (dialog.exec() != QDialog::Accepted) {
    return false;
  }
  columns.rememberChoice();
  return true;
}

void FileController::chooseColumns() {
  if (!_document.file() || !_document.file()->columns() || !mayLeave()) {
    return;
  }
  const QString path = _document.path();
  try {
    // Read once more, so that the choice does not reach a book that the user then keeps.
    std::unique_ptr<BookFile> file = openBookFile(path);
    // Another program may have put a file of another kind there, which has no columns.
    if (file->columns() == nullptr || askColumns(*file->columns(), path)) {
      _document.begin(std::move(file), path);
    }
  } catch (const tables::FileError& error) {
    showError(tr("“%1” cannot be opened.").arg(shown(path)), error);
  }
}

bool FileController::save() {
  if (_document.path().isEmpty() || !_document.format().isWritable()) {
    return saveAs();
  }
  switch (mayOverwrite()) {
    case Overwriting::Yes:
      return saveTo(_document.path(), _document.format());
    case Overwriting::Elsewhere:
      return saveAs();
    case Overwriting::No:
      break;
  }
  return false;
}

bool FileController::saveAs() {
  QFileDialog dialog(_window, tr("Save the address book"), folder());
  const QList<const BookFormat*> formats = writableFormats();
  QStringList filters;
  for (const BookFormat* const format : formats) {
    filters.append(nameFilter(*format));
  }
  const BookFormat& usual = _document.format().isWritable() ? _document.format() : *formats.first();
  const auto chooseType = [&](const QString& filter) {
    dialog.setDefaultSuffix(
        formats[std::max<qsizetype>(filters.indexOf(filter), 0)]->endings.first());
  };
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilters(filters);
  dialog.selectNameFilter(nameFilter(usual));
  chooseType(nameFilter(usual));
  connect(&dialog, &QFileDialog::filterSelected, &dialog, chooseType);
  const QString path = _document.path();
  dialog.selectFile(path.isEmpty() ? tr("Address book") : QFileInfo(path).completeBaseName());
  if (dialog.exec() != QDialog::Accepted) {
    return false;
  }
  const BookFormat& format =
      *formats[std::max<qsizetype>(filters.indexOf(dialog.selectedNameFilter()), 0)];
  const QString chosen = dialog.selectedFiles().first();
  const QString whole = withEnding(chosen, format);
  return (whole == chosen || mayReplace(whole)) && mayLeaveBehind(whole, format) &&
         saveTo(whole, format);
}

bool FileController::saveTo(const QString& path, const BookFormat& format) {
  try {
    const BusyCursor busy;
    const QStringList notes = _document.save(path, format);
    RecentFiles::add(path);
    emit told(notes.join(QLatin1Char(' ')));
    return true;
  } catch (const tables::FileError& error) {
    showError(tr("“%1” cannot be saved.").arg(shown(path)), error);
    return false;
  }
}

// The dialog asks about the name as it was typed; this one got its ending here.
bool FileController::mayReplace(const QString& path) {
  if (!QFileInfo::exists(path)) {
    return true;
  }
  Question question(_window, tr("“%1” is there already.").arg(shown(path)),
                    tr("If you replace it, what it holds is lost."));
  QAbstractButton* const replace = question.addStep(tr("&Replace It"));
  question.addWayOut(tr("Cancel"));
  return question.ask() == replace;
}

FileController::Overwriting FileController::mayOverwrite() {
  if (!_document.isChangedOnDisk()) {
    return Overwriting::Yes;
  }
  const bool isThere = QFileInfo::exists(_document.path());
  const QString what = isThere ? tr("Another program has changed “%1” since it was opened here.")
                               : tr("“%1” is not there any more since it was opened here.");
  Question question(
      _window, what.arg(_document.title()),
      isThere ? tr("If you save over it, what the other program wrote is lost. You can save "
                   "under another name and compare.")
              : tr("It was deleted, moved or renamed. The address book is still whole in this "
                   "window and can be written again."));
  const QAbstractButton* const again = isThere ? nullptr : question.addStep(tr("&Write It Again"));
  const QAbstractButton* const elsewhere = question.addStep(tr("Save &As…"));
  const QAbstractButton* const over = isThere ? question.addStep(tr("Save &Over It")) : again;
  question.addWayOut(tr("Cancel"));
  const QAbstractButton* const answer = question.ask();
  return answer == elsewhere ? Overwriting::Elsewhere
         : answer == over    ? Overwriting::Yes
                             : Overwriting::No;
}

bool FileController::mayLeaveBehind(const QString& path, const BookFormat& format) {
  if (!_document.leavesBehind(format)) {
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

QString FileController::askExportPath(const QString& title) {
  const BookFormat& format = CsvFile::bookFormat();
  const QString chosen = QFileDialog::getSaveFileName(_window, title, folder(), nameFilter(format));
  const QString path = chosen.isEmpty() ? chosen : withEnding(chosen, format);
  return path == chosen || mayReplace(path) ? path : QString();
}

void FileController::exportForMailMerge(const QList<int>& rows) {
  const QString path = askExportPath(tr("Export for mail merge"));
  if (path.isEmpty()) {
    return;
  }
  try {
    const BusyCursor busy;
    tables::ReplacementFile file(path);
    file.write(MergeFile::write(_document.book(), rows));
    file.commit();
    emit told(tr("%n entries exported to “%1”.", nullptr, static_cast<int>(rows.size()))
                  .arg(shown(path)));
  } catch (const tables::FileError& error) {
    showError(tr("“%1” cannot be saved.").arg(shown(path)), error);
  }
}

void FileController::exportForSpreadsheet() {
  const QString path = askExportPath(tr("Export for spreadsheets"));
  if (path.isEmpty()) {
    return;
  }
  try {
    const BusyCursor busy;
    CsvFile fresh;
    ColumnedFile* const own = _document.file() ? _document.file()->columns() : nullptr;
    const ColumnedFile& file = own != nullptr ? *own : fresh;
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
