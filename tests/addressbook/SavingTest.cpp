// A program killed while saving leaves the old or the new file, whole.

#include <signal.h>
#include <sys/resource.h>

#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include "apps/addressbook/formats/BookFormats.h"
#include "apps/tables/FileError.h"

namespace postwright::addressbook {

namespace {

constexpr int kEntries = 4000;
#ifdef POSTWRIGHT_SANITIZED
constexpr int kManyEntries = 10'000;
#else
constexpr int kManyEntries = 100'000;
#endif

// The entries of the old and of the new file: every label names which.
QList<Entry> entriesOf(const QString& word, int count = kEntries) {
  QList<Entry> entries;
  for (int id = 1; id <= count; ++id) {
    entries.append(
        {id, QStringLiteral("Jane %1\n%2 Main St\nAustin, TX 78701").arg(word).arg(id), {}});
  }
  return entries;
}

// The child saves the two files in turn until it is killed.
[[noreturn]] void saveForever(const QString& path) {
  const QList<Entry> oldEntries = entriesOf("Old");
  const QList<Entry> newEntries = entriesOf("New");
  const std::unique_ptr<BookFile> file = openBookFile(path);
  for (;;) {
    file->write(path, newEntries);
    file->write(path, oldEntries);
  }
}

}  // namespace

class SavingTest : public QObject {
  Q_OBJECT

 private slots:
  void survivesBeingKilled_data();
  void survivesBeingKilled();
  void saysWhyItCannotWrite_data();
  void saysWhyItCannotWrite();
  void leavesTheOldFileWhereItCannotWrite_data();
  void leavesTheOldFileWhereItCannotWrite();
  void takesBigFiles_data();
  void takesBigFiles();
};

void SavingTest::survivesBeingKilled_data() {
  QTest::addColumn<QString>("name");
  QTest::newRow("CSV") << "book.csv";
  QTest::newRow("vCard") << "book.vcf";
  QTest::newRow("store") << "book.pwbook";
}

void SavingTest::survivesBeingKilled() {
  QFETCH(QString, name);
  QTemporaryDir folder;
  const QString path = folder.filePath(name);
  newBookFile(path)->write(path, entriesOf("Old"));
  QRandomGenerator random(1);
  for (int round = 0; round < 8; ++round) {
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {"--save-forever", path});
    QVERIFY(child.waitForStarted());
    QTest::qWait(random.bounded(150, 500));
    QCOMPARE(child.state(), QProcess::Running);
    ::kill(static_cast<pid_t>(child.processId()), SIGKILL);
    child.waitForFinished();
    const QList<Entry> entries = openBookFile(path)->entries();
    QCOMPARE(entries.size(), kEntries);
    const bool isNew = entries.first().label.contains("New");
    for (const Entry& entry : entries) {
      QCOMPARE(entry.label.contains("New"), isNew);
    }
    // Reading has removed what the killed program left.
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{name});
  }
}

void SavingTest::saysWhyItCannotWrite_data() {
  survivesBeingKilled_data();
  QTest::newRow("workbook") << "book.xlsx";
}

// A full disk, and a file that must not be changed: the message says so, the file is as it was, and
// nothing is left next to it.
void SavingTest::saysWhyItCannotWrite() {
  QFETCH(QString, name);
  QTemporaryDir folder;
  const QString path = folder.filePath(name);
  const std::unique_ptr<BookFile> file = newBookFile(path);
  file->write(path, entriesOf("Old", 1));
  const auto refusal = [&] {
    try {
      file->write(path, entriesOf("New"));
      return QString();
    } catch (const tables::FileError& error) {
      return error.message();
    }
  };
  ::signal(SIGXFSZ, SIG_IGN);
  rlimit usual = {};
  ::getrlimit(RLIMIT_FSIZE, &usual);
  const rlimit small = {8192, usual.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &small);
  const QString full = refusal();
  ::setrlimit(RLIMIT_FSIZE, &usual);
  QVERIFY2(full.contains("File too large") || full.contains("disk"), qUtf8Printable(full));
  QVERIFY(QFile::setPermissions(path, QFileDevice::ReadOwner));
  const QString barred = refusal();
  QVERIFY2(barred.contains("write-protected"), qUtf8Printable(barred));
  QVERIFY(openBookFile(path)->entries().first().label.contains("Old"));
  QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{name});
}

void SavingTest::leavesTheOldFileWhereItCannotWrite_data() {
  saysWhyItCannotWrite_data();
  QTest::newRow("spreadsheet") << "book.ods";
}

void SavingTest::leavesTheOldFileWhereItCannotWrite() {
  QFETCH(QString, name);
  QTemporaryDir folder;
  const QString path = folder.filePath(name);
  const std::unique_ptr<BookFile> file = newBookFile(path);
  file->write(path, {{1, "old", {}}});
  QVERIFY_EXCEPTION_THROWN(file->write(folder.filePath("no folder/" + name), {}),
                           tables::FileError);
  // A folder in the way of the new file.
  const QString blocked = folder.filePath("blocked");
  QDir().mkpath(blocked + "/inside");
  QVERIFY_EXCEPTION_THROWN(file->write(blocked, {{1, "new", {}}}), tables::FileError);
  QCOMPARE(openBookFile(path)->entries().first().label, "old");
  QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

void SavingTest::takesBigFiles_data() {
  survivesBeingKilled_data();
}

// A step whose cost grows with the square of the entries would not end before the time is up.
void SavingTest::takesBigFiles() {
  QFETCH(QString, name);
  QTemporaryDir folder;
  const QString path = folder.filePath(name);
  newBookFile(path)->write(path, entriesOf("Old", kManyEntries));
  const std::unique_ptr<BookFile> file = openBookFile(path);
  QList<Entry> entries = file->entries();
  for (Entry& entry : entries) {
    entry.label.replace("Old", "New");
  }
  file->write(path, entries);
  const QList<Entry> read = openBookFile(path)->entries();
  const QList<Entry> expected = entriesOf("New", kManyEntries);
  QVERIFY(std::equal(read.begin(), read.end(), expected.begin(), expected.end(),
                     [](const Entry& a, const Entry& b) { return a.label == b.label; }));
}

}  // namespace postwright::addressbook

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.value(1) == "--save-forever") {
    postwright::addressbook::saveForever(arguments.value(2));
  }
  postwright::addressbook::SavingTest test;
  return QTest::qExec(&test, argc, argv);
}
#include "SavingTest.moc"
