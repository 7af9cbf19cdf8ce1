#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_FILECONTROLLER_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_FILECONTROLLER_H_

#include <QObject>
#include <QStringList>

#include "apps/tables/FileError.h"

class QMenu;
class QWidget;

namespace postwright::addressbook {

class BookDocument;
class BookFile;
class ColumnedFile;
struct BookFormat;

// Opens and saves address books, asking the user what only the user knows: names, columns, and
// whether changes may be lost.
class FileController : public QObject {
  Q_OBJECT

 public:
  // `document` and `window`, in front of which questions are asked, live longer than this.
  FileController(BookDocument& document, QWidget* window);

  // Fills the menu of recent files whenever it is shown.
  void setRecentMenu(QMenu* menu);

  // False where the user wants to stay with the book, or it could not be saved.
  bool mayLeave();

  void newBook();
  void open();
  // False where nothing was opened.
  bool openPath(const QString& path);
  bool save();
  bool saveAs();

  // Asks again which columns of the file make the label. Only for a book without changes.
  void chooseColumns();
  void exportForSpreadsheet();
  // Writes the entries of `rows`, in that order, for mail merge.
  void exportForMailMerge(const QList<int>& rows);

 signals:
  // What the user should know about what was done; empty: that it went well.
  void told(const QString& note);

 private:
  void fillRecentMenu(QMenu* menu);
  // True once it is known which columns make the label; false where the user does not say.
  bool knowsColumns(BookFile& file, const QString& path);
  bool askColumns(ColumnedFile& columns, const QString& path);
  bool saveTo(const QString& path, const BookFormat& format);
  // Asks where the file is not the one that was opened.
  enum class Overwriting { Yes, No, Elsewhere };
  Overwriting mayOverwrite();
  bool mayReplace(const QString& path);
  bool mayLeaveBehind(const QString& path, const BookFormat& format);
  // The path of a CSV file that may be written; empty where the user does not want to.
  QString askExportPath(const QString& title);
  void showError(const QString& what, const tables::FileError& error);
  QString folder() const;

  BookDocument& _document;
  QWidget* _window;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_FILECONTROLLER_H_
