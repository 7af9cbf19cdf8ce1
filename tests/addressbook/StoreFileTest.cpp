// The program's own file.

#include <QTemporaryDir>
#include <QTest>

#include "apps/addressbook/book/Database.h"
#include "tests/addressbook/TestFolder.h"

namespace postwright::addressbook {

namespace {

QList<Entry> someEntries() {
  return {{3, QStringLiteral("Peña\nO'Neil"), {QDate(2026, 2, 28), QByteArray("x\0y", 3), "no"}},
          {7, QString(), {}},
          {9,
           QStringLiteral("c"),
           {QDate(2026, 2, 28), "z", {}, Known::FormOnly, QStringLiteral("Says the list.")}}};
}

QString textOf(const QList<Entry>& entries) {
  QString text;
  for (const Entry& entry : entries) {
    text += QStringLiteral("%1 %2 %3 %4 %5 %6 %7;")
                .arg(entry.id)
                .arg(static_cast<int>(entry.check.known))
                .arg(entry.label, entry.check.day.toString(), entry.check.text.toHex(),
                     entry.check.failure, entry.check.source);
  }
  return text;
}

}  // namespace

class StoreFileTest : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void roundTrip();
  void readsEarlierVersions_data();
  void readsEarlierVersions();
  void keepsWhatIsNotKnown();
  void outlivesItsName_data();
  void outlivesItsName();
  void refuses_data();
  void refuses();

 private:
  std::unique_ptr<QTemporaryDir> _folder;
  QString _path;
};

void StoreFileTest::init() {
  _folder = std::make_unique<QTemporaryDir>();
  _path = _folder->filePath("it's a book.pwbook");
  newBookFile(_path)->write(_path, someEntries());
}

void StoreFileTest::roundTrip() {
  const std::unique_ptr<BookFile> file = openBookFile(_path);
  QCOMPARE(textOf(file->entries()), textOf(someEntries()));
  QList<Entry> entries = file->entries();
  entries[2].label = "changed";
  entries.removeFirst();
  entries.append({12, "new", {}});
  file->write(_path, entries);
  QCOMPARE(textOf(openBookFile(_path)->entries()), textOf(entries));
  QCOMPARE(QDir(_folder->path()).entryList(QDir::Files).size(), 1);  // nothing is left next to it
}

void StoreFileTest::readsEarlierVersions_data() {
  QTest::addColumn<QStringList>("without");
  QTest::newRow("1") << QStringList{"confirmation", "confirmation_source", "delivery_point"};
  QTest::newRow("2") << QStringList{"delivery_point"};
}

// The earlier version told less about confirmation. That a request went unanswered is not kept.
void StoreFileTest::readsEarlierVersions() {
  QFETCH(QStringList, without);
  {
    Database database(_path, Database::Access::ReadWrite);
    for (const QString& column : without) {
      database.run("ALTER TABLE entries DROP COLUMN " + column);
    }
    database.run(QString("PRAGMA user_version = ") + QTest::currentDataTag());
  }
  const std::unique_ptr<BookFile> file = openBookFile(_path);
  QList<Entry> entries = file->entries();
  QCOMPARE(entries[2].check.known, without.size() > 1 ? Known::NotTold : Known::FormOnly);
  QCOMPARE(entries[0].check.failure, "no");
  entries[0].check.isUnanswered = true;
  entries[2].check.known = Known::UnitMissing;
  entries[2].check.deliveryPoint = "07";
  file->write(_path, entries);
  QCOMPARE(openBookFile(_path)->entries()[2].check.deliveryPoint, "07");
  QCOMPARE(openBookFile(_path)->entries()[2].check.known, Known::UnitMissing);
  QVERIFY(!openBookFile(_path)->entries()[0].check.day.isValid());
}

void StoreFileTest::keepsWhatIsNotKnown() {
  const auto others = [this] {
    Database database(_path, Database::Access::ReadOnly);
    QSqlQuery rows = database.run(
        "SELECT group_concat(\"a \"\"column\", ',') || (SELECT note FROM elsewhere) FROM entries");
    rows.next();
    return rows.value(0).toString();
  };
  {
    Database database(_path, Database::Access::ReadWrite);
    database.run("ALTER TABLE entries ADD COLUMN \"a \"\"column\" TEXT");
    database.run("UPDATE entries SET \"a \"\"column\" = 'of ' || id");
    database.run("CREATE TABLE elsewhere AS SELECT '!' AS note");
  }
  const std::unique_ptr<BookFile> file = openBookFile(_path);
  QList<Entry> entries = file->entries();
  entries[0].label = "changed";
  file->write(_path, entries.first(2));
  QCOMPARE(others(), "of 3,of 7!");
  file->write(_path, entries);  // the removal was undone
  QCOMPARE(others(), "of 3,of 7,of 9!");
  const QString first = _path;
  _path = _folder->filePath("copy.pwbook");
  file->write(_path, entries);
  QCOMPARE(others(), "of 3,of 7,of 9!");
}

// What another program keeps in the file survives when it is saved after its name is gone, or after
// another file has taken its place.
void StoreFileTest::outlivesItsName_data() {
  QTest::addColumn<QByteArray>("instead");
  QTest::newRow("deleted") << QByteArray();
  QTest::newRow("replaced") << QByteArray("Name,Street\n");
}

void StoreFileTest::outlivesItsName() {
  QFETCH(QByteArray, instead);
  {
    Database database(_path, Database::Access::ReadWrite);
    database.run("ALTER TABLE entries ADD COLUMN phone TEXT");
    database.run("UPDATE entries SET phone = 'of ' || id");
  }
  const std::unique_ptr<BookFile> file = openBookFile(_path);
  QVERIFY(QFile::remove(_path));
  if (!instead.isEmpty()) {
    QFile other(_path);
    QVERIFY(other.open(QIODevice::WriteOnly) && other.write(instead) == instead.size());
  }
  file->write(_path, file->entries());
  Database database(_path, Database::Access::ReadOnly);
  QSqlQuery rows = database.run("SELECT group_concat(phone, ',') FROM entries");
  QVERIFY(rows.next());
  QCOMPARE(rows.value(0).toString(), "of 3,of 7,of 9");
}

void StoreFileTest::refuses_data() {
  QTest::addColumn<QString>("statement");
  QTest::addColumn<QString>("says");
  QTest::newRow("later version") << "PRAGMA user_version = 4"
                                 << "later version";
  QTest::newRow("other application") << "PRAGMA application_id = 1"
                                     << "not an address book";
  QTest::newRow("no table") << "DROP TABLE entries"
                            << "entries";
}

void StoreFileTest::refuses() {
  QFETCH(QString, statement);
  QFETCH(QString, says);
  Database(_path, Database::Access::ReadWrite).run(statement);
  const QString refusal = TestFolder::refusal(_path);
  QVERIFY2(refusal.contains(says), qUtf8Printable(refusal));
}

}  // namespace postwright::addressbook

QTEST_GUILESS_MAIN(postwright::addressbook::StoreFileTest)
#include "StoreFileTest.moc"
