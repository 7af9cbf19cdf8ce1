// Whichever call of a save fails, or is the last one before the process is killed: the file is the
// old or the new one, nothing is left next to it, and the message names the cause.

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include "apps/addressbook/formats/BookFormats.h"
#include "apps/tables/FileError.h"
#include "tests/addressbook/TestFolder.h"
#include "tests/support/FaultRuns.h"

namespace postwright::addressbook {

namespace {

const QString kOld = QStringLiteral("Jane Old\n1 Main St\nAustin, TX 78701");
const QString kNew = QStringLiteral("Jane New\n1 Main St\nAustin, TX 78701");

QString labelIn(const QString& path) {
  try {
    return openBookFile(path)->entries().value(0).label;
  } catch (const tables::FileError& error) {
    return error.message();
  }
}

struct Row {
  const char* name;
  const char* file;
  bool isThere;  // before it is saved
};

constexpr Row kRows[] = {
    {"CSV", "book.csv", true},
    {"a new CSV", "book.csv", false},
    {"vCard", "book.vcf", true},
    {"store", "book.pwbook", true},
    {"a new store", "book.pwbook", false},
};

class Saving {
 public:
  explicit Saving(const Row& row) : _row(row), _path(_folder.path(row.file)) {}

  std::string run() {
    _runs.folder = QDir(_folder.path({})).canonicalPath().toStdString();
    _runs.prepare = [this] { prepare(); };
    _runs.work = [this] { return save(); };
    _runs.check = [this](const FaultRuns::End& end) { return complaint(end); };
    return _runs.Run();
  }

 private:
  void prepare() const {
    if (_row.isThere) {
      newBookFile(_path)->write(_path, {{1, kOld, {}}});
    }
  }

  std::string save() const {
    try {
      const std::unique_ptr<BookFile> file =
          _row.isThere ? openBookFile(_path) : newBookFile(_path);
      file->write(_path, {{1, kNew, {}}});
      return "";
    } catch (const tables::FileError& error) {
      return error.message().toStdString();
    }
  }

  std::string complaint(const FaultRuns::End& end) const {
    const bool isThere = QFile::exists(_path);
    std::string left = _runs.Files();
    const QString label = isThere ? labelIn(_path) : QString();
    if (end.isKilled) {  // the next open or save removes what was left
      if (!isThere) {
        save();
      }
      left = _runs.Files();
    }
    const bool isNew = label == kNew;
    if (!isNew && (isThere != _row.isThere || (isThere && label != kOld))) {
      return "it holds: " + label.toStdString();
    }
    if (left != (isThere || end.isKilled ? _row.file : "")) {
      return "there are: " + left;
    }
    if (end.isKilled || (end.said.empty() && isNew)) {
      return "";
    }
    return end.NamesCause() ? "" : "no cause is named";
  }

  const Row& _row;
  const TestFolder _folder;
  const QString _path;
  FaultRuns _runs;
};

TEST(SavingFaultsTest, LeavesTheOldFileOrTheNewOne) {
  int argc = 0;
  const QCoreApplication application(argc, nullptr);
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Saving(row).run(), "");
  }
}

}  // namespace

}  // namespace postwright::addressbook
