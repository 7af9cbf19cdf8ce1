// Replacing a file: what of it stays, and what is left next to it.

#include <sys/stat.h>

#include <QDir>
#include <QTest>

#include "apps/tables/FileError.h"
#include "apps/tables/ReplacementFile.h"
#include "tests/addressbook/TestFolder.h"

using postwright::tables::ReplacementFile;

namespace postwright::addressbook {

namespace {

void replace(const QString& path, const QByteArray& bytes) {
  ReplacementFile file(path);
  file.write(bytes);
  file.commit();
}

unsigned modeOf(const QString& path) {
  struct stat found = {};
  return ::stat(QFile::encodeName(path).constData(), &found) == 0 ? found.st_mode & 07777 : 0;
}

QStringList filesIn(const TestFolder& folder) {
  return QDir(folder.path({})).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}

}  // namespace

class ReplacementFileTest : public QObject {
  Q_OBJECT

 private slots:
  void keepsPermissions();
  void writesWhereALinkLeads();
  void takesNamesAsLongAsTheyMayBe();
  void leavesNothingBehind();
  void removesWhatNobodyWrites();
};

void ReplacementFileTest::keepsPermissions() {
  const TestFolder folder;
  const QString path = folder.put("book.csv", "old");
  for (const mode_t mode : {0640U, 0604U, 0777U, 0200U}) {
    ::chmod(QFile::encodeName(path).constData(), mode);
    replace(path, "new");
    QCOMPARE(modeOf(path), mode);
  }
  const mode_t mask = ::umask(027);
  replace(folder.path("fresh.csv"), "new");
  ::umask(mask);
  QCOMPARE(modeOf(folder.path("fresh.csv")), 0640U);
  ::chmod(QFile::encodeName(path).constData(), 0444);
  QVERIFY_EXCEPTION_THROWN(ReplacementFile{path}, tables::FileError);  // the superuser's, too
}

void ReplacementFileTest::writesWhereALinkLeads() {
  const TestFolder folder;
  QVERIFY(QFile::link(folder.put("book.csv", "old"), folder.path("link.csv")));
  replace(folder.path("link.csv"), "new");
  QVERIFY(QFileInfo(folder.path("link.csv")).isSymLink());
  QCOMPARE(folder.bytes("book.csv"), "new");
}

void ReplacementFileTest::takesNamesAsLongAsTheyMayBe() {
  const TestFolder folder;
  const QString name(255, QLatin1Char('x'));
  replace(folder.path(name), "old");
  replace(folder.path(name), "new");
  QCOMPARE(folder.bytes(name), "new");
  QCOMPARE(filesIn(folder), QStringList{name});
}

void ReplacementFileTest::leavesNothingBehind() {
  const TestFolder folder;
  const QString path = folder.put("book.csv", "old");
  {
    ReplacementFile file(path);
    file.write("new");
    QCOMPARE(filesIn(folder).size(), 2);
  }
  QCOMPARE(filesIn(folder), QStringList{"book.csv"});
  QCOMPARE(folder.bytes("book.csv"), "old");
}

// What a killed program left is removed, with a database's journal; what another program is
// writing stays.
void ReplacementFileTest::removesWhatNobodyWrites() {
  const TestFolder folder;
  const QString path = folder.put("book.csv", "old");
  const QStringList others = {".book.csv.notes", ".books.csv.Ab12Cd.saving", "book.csv"};
  for (const QString& name : others) {
    folder.put(name, "old");
  }
  folder.put(".book.csv.Ab12Cd.saving", "half");
  folder.put(".book.csv.Ab12Cd.saving-journal", "half");
  ReplacementFile first(path);
  QCOMPARE(filesIn(folder).size(), others.size() + 1);
  first.write("first");
  replace(path, "second");
  QCOMPARE(folder.bytes("book.csv"), "second");
  first.commit();
  QCOMPARE(folder.bytes("book.csv"), "first");
  QCOMPARE(filesIn(folder), others);
}

}  // namespace postwright::addressbook

QTEST_GUILESS_MAIN(postwright::addressbook::ReplacementFileTest)
#include "ReplacementFileTest.moc"
