// What a book keeps of its entries: the lines of a label, their checks, and what was added and
// removed.

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "apps/addressbook/book/Book.h"
#include "apps/addressbook/book/CheckHistory.h"
#include "apps/addressbook/book/Database.h"
#include "apps/addressbook/book/LastName.h"
#include "apps/addressbook/book/SameAddress.h"
#include "apps/tables/LabelText.h"

namespace postwright::addressbook {

namespace {

const QString kLabel = QStringLiteral("Jane Doe\n12 Main St\nAustin, TX 78701");

QString idsOf(const Book& book) {
  QString ids;
  for (const Entry& entry : book.entries()) {
    ids += QString::number(entry.id);
  }
  return ids;
}

}  // namespace

class BookTest : public QObject {
  Q_OBJECT

 private slots:
  void readsPlaces_data();
  void readsPlaces();
  void showsLabelsInColumns_data();
  void showsLabelsInColumns();
  void tellsWhatIsDue_data();
  void tellsWhatIsDue();
  void neverAsksAboutOtherCountries_data();
  void neverAsksAboutOtherCountries();
  void findsLastNames();
  void tellsAddressesApart();
  void insertsWhatWasRemoved();
  void remembersChecksBetweenRuns();
};

void BookTest::readsPlaces_data() {
  QTest::addColumn<QString>("line");
  QTest::addColumn<QString>("place");
  QTest::newRow("comma") << "Austin, TX 78701"
                         << "Austin|TX|78701";
  QTest::newRow("no punctuation") << "AUSTIN TX 787011234"
                                  << "AUSTIN|TX|787011234";
  QTest::newRow("ZIP+4") << "  New York ,  NY   10001-0001 "
                         << "New York|NY|10001-0001";
  QTest::newRow("state in full") << "Austin, New Mexico 78701"
                                 << "Austin|New Mexico|78701";
  QTest::newRow("street on the line") << "1 Main St, Austin TX 78701"
                                      << "1 Main St, Austin|TX|78701";
  QTest::newRow("no state") << "Austin 78701"
                            << "";
  QTest::newRow("short ZIP") << "Austin, TX 7870"
                             << "";
  QTest::newRow("ZIP alone") << "78701"
                             << "";
  QTest::newRow("endless") << QString(100000, QLatin1Char('a')) + ", TX 78701"
                           << "";
}

void BookTest::readsPlaces() {
  QFETCH(QString, line);
  const std::optional<tables::PlaceParts> place = tables::readPlace(line);
  QTEST(place ? place->city + "|" + place->state + "|" + place->zip : QString(), "place");
}

void BookTest::showsLabelsInColumns_data() {
  QTest::addColumn<QString>("label");
  QTest::addColumn<QString>("columns");
  QTest::newRow("usual") << kLabel << "Jane Doe|12 Main St|Austin, TX|78701";
  QTest::newRow("long") << "A\nB Inc\n1 C St\nApt 2\nReno NV 89501\nUSA"
                        << "A|B Inc, 1 C St, Apt 2, USA|Reno, NV|89501";
  QTest::newRow("no place") << "A\nB"
                            << "A|B||";
  QTest::newRow("empty") << ""
                         << "|||";
}

void BookTest::showsLabelsInColumns() {
  QFETCH(QString, label);
  const tables::LabelSummary summary = tables::summarizeLabel(label);
  QTEST(QStringList({summary.name, summary.street, summary.place, summary.zip}).join('|'),
        "columns");
}

void BookTest::tellsWhatIsDue_data() {
  QTest::addColumn<Entry>("entry");
  QTest::addColumn<CheckState>("state");
  const QByteArray text = textFingerprint(kLabel);
  const QDate day(2026, 1, 31);
  QTest::newRow("never asked") << Entry{1, kLabel, {}} << CheckState::NotChecked;
  QTest::newRow("right") << Entry{1, kLabel, {day, text, {}}} << CheckState::Right;
  QTest::newRow("right, other case")
      << Entry{1, kLabel.toUpper(), {day, text, {}}} << CheckState::Right;
  QTest::newRow("edited") << Entry{1, kLabel + "2", {day, text, {}}} << CheckState::NotChecked;
  QTest::newRow("five months ago")
      << Entry{1, kLabel, {day.addDays(-180), text, {}}} << CheckState::Right;
  QTest::newRow("six months ago") << Entry{1, kLabel, {day.addDays(-184), text, {}}}
                                  << CheckState::DueAgain;
  QTest::newRow("turned down") << Entry{1, kLabel, {day, text, "Invalid Address"}}
                               << CheckState::Failed;
}

void BookTest::tellsWhatIsDue() {
  QFETCH(Entry, entry);
  QTEST(checkState(entry, QDate(2026, 1, 31)), "state");
}

void BookTest::neverAsksAboutOtherCountries_data() {
  QTest::addColumn<QString>("label");
  QTest::addColumn<bool>("isForeign");
  QTest::newRow("by name") << "Li\nWeg 1\n10115 Berlin\nGERMANY" << true;
  QTest::newRow("neighbour") << "Li\n1 Rue A\nMontreal QC H2X 1Y4\nCanada" << true;
  QTest::newRow("with accents") << "Li\nCalle 1\n06000 CDMX\nMéxico" << true;
  QTest::newRow("at home") << "Li\n1 A St\nReno, NV 89501\nUSA" << false;
  QTest::newRow("territory") << "Li\n1 Calle A\nSan Juan, PR 00901\nPuerto Rico" << false;
  QTest::newRow("state too") << "Li\n1 A St\nAtlanta\nGeorgia" << false;
  QTest::newRow("name alone") << "Jordan" << false;
}

void BookTest::neverAsksAboutOtherCountries() {
  QFETCH(QString, label);
  const Entry entry{1, label, {}};
  QTEST(checkState(entry, QDate(2026, 1, 1)) == CheckState::Foreign, "isForeign");
}

void BookTest::findsLastNames() {
  const struct {
    const char* name;
    const char* told;
    const char* key;
  } rows[] = {
      {"Jane Doe", "", "Doe Jane Doe"},
      {"DR. LUDWIG VAN DER BERG JR.", "", "VAN DER BERG LUDWIG VAN DER BERG"},
      {"Maria de la Cruz", "", "de la Cruz Maria de la Cruz"},
      {"Sean O'Brien, III", "", "O'Brien Sean O'Brien,"},
      {"Al Roe", "", "Roe Al Roe"},
      {"Kim Do", "", "Do Kim Do"},
      {"Ann Lee, DO", "", "Lee Ann Lee, DO"},
      {"Cher", "", "Cher"},
      {"de la Cruz", "", "de la Cruz de la Cruz"},
      {"John E. Smith", "", "Smith John E. Smith"},
      {"John and Mary Smith", "", "Smith John and Mary Smith"},
      {"Mr. & Mrs. John Smith", "", "Smith & Mrs. John Smith"},
      {"Ann Roe & Bob Lee", "", "Roe Ann Roe & Bob Lee"},
      {"Ann Roe c/o Bob Lee", "", "Roe Ann Roe c/o Bob Lee"},
      {"The Smith Family", "", "Smith Smith"},
      {"Smith, John", "", "Smith John"},
      {"The Home Company", "", "Home Company"},
      {"Smith & Sons", "", "Smith & Sons"},
      {"3M", "", "3M"},
      {"AT&T", "", "AT&T"},
      {"Maria Garcia Lopez", "Garcia Lopez", "Garcia Lopez Maria Garcia Lopez"},
      {"Frank Church", "Church", "Church Frank Church"},
      {"Frank Roe", "Church", "Roe Frank Roe"},  // renamed since the file was read
      {"The Ark", "The Ark", "Ark"},
      {"", "", ""},
  };
  for (const auto& row : rows) {
    QCOMPARE(lastNameKey(row.name, row.told), row.key);
  }
}

void BookTest::tellsAddressesApart() {
  const QString first = "Jane Doe\n12 North Main Street, Apt. 4\nReno, NV 89501";
  const std::pair<const char*, bool> rows[] = {
      {"Al Doe\nDOE INC\n12 N MAIN ST # 4\nRENO NV 89501-1234", true},
      {"Al Doe\n12 N Main St\nUnit 4\nVerdi, NV 89501\nUSA", true},
      {"Al Doe\n12 N Main St\nHngr 4\nReno, NV 89501", true},
      {"Al Doe\n12 N Main St\nReno, NV 89501", false},
      {"Al Doe\n12 N Main St Apt 5\nReno, NV 89501", false},
      {"Al Doe\n12 N Main St Apt 4\nReno, NV 89502", false},
      {"Al Doe\n12-4 N Main St\nReno, NV 89501", false},
      {"12 N Main St Apt 4\nPO Box 12\nReno, NV 89501", false},
      {"Al Doe\n12 N Main St Apt 4", false},
  };
  for (const auto& [label, isSame] : rows) {
    QVERIFY2((addressKey(label) == addressKey(first)) == isSame, label);
  }
  QVERIFY(addressKey("Al Doe\n3rd Floor\nReno, NV 89501").isEmpty());
  QVERIFY(addressKey("Jane Doe\nReno, NV 89501").isEmpty());
  QCOMPARE(mergedLabel({first, "JANE DOE\n12 N MAIN ST\nReno, NV 89501", rows[0].first}),
           "Jane Doe\nAl Doe\nDOE INC\n12 North Main Street, Apt. 4\nReno, NV 89501");
}

// Removing rows and inserting the result restores the book, with a notification for each row.
void BookTest::insertsWhatWasRemoved() {
  Book book;
  book.reset({{1, {}, {}}, {2, {}, {}}, {3, {}, {}}, {4, {}, {}}, {5, {}, {}}}, QDate(2026, 5, 1));
  QSignalSpy removed(&book, &Book::removed);
  QSignalSpy inserted(&book, &Book::inserted);
  const QList<PlacedEntry> taken = book.remove({0, 3, 4});
  QCOMPARE(idsOf(book), "23");
  book.insert(taken);
  QCOMPARE(idsOf(book), "12345");
  QCOMPARE(removed.takeFirst().first().value<QList<int>>(), QList<int>({0, 3, 4}));
  QCOMPARE(inserted.takeFirst().first().value<QList<int>>(), QList<int>({0, 3, 4}));
  book.remove({4});
  QCOMPARE(book.makeEntry({}).id, 6);  // never the id of an entry that undo may bring back
}

void BookTest::remembersChecksBetweenRuns() {
  QTemporaryDir folder;
  const QString path = folder.filePath("checks.sqlite");
  const QDate today(2026, 5, 1);
  const auto checked = [today](const QString& label, int daysAgo, const QString& failure = {}) {
    return Entry{1, label, {today.addDays(-daysAgo), textFingerprint(label), failure}};
  };
  {
    Database earlier(path, Database::Access::ReadWrite);  // as the first version made it
    earlier.run("CREATE TABLE checks (text BLOB PRIMARY KEY, day INTEGER NOT NULL) WITHOUT ROWID");
    earlier.run("INSERT INTO checks VALUES (?, ?)",
                {textFingerprint("e"), today.addDays(-9).toJulianDay()});
  }
  QList<Entry> said = {checked("a", 3), checked("b", 400), checked("c", 1),
                       checked("f", 0, "away")};
  said[0].check.known = Known::UnitMissing;
  said[0].check.source = "According to the base.";
  said[0].check.deliveryPoint = "07";
  said[3].check.isUnanswered = true;
  QList<Entry> entries = {{1, "e", {}}};
  CheckHistory(path).fill(entries);
  QCOMPARE(entries[0].check.day, today.addDays(-9));
  CheckHistory(path).remember(said, today);
  CheckHistory(path).remember({checked("c", 0, "Invalid Address")}, today);
  entries = {{1, "A", {}}, {2, "b", {}}, {3, "c", {}}, {4, "d", {}}, {5, "e", {}}, {6, "f", {}}};
  CheckHistory(path).fill(entries);
  QCOMPARE(entries[0].check.day, today.addDays(-3));
  QCOMPARE(entries[0].check.known, Known::UnitMissing);
  QCOMPARE(entries[0].check.source, "According to the base.");
  QCOMPARE(entries[0].check.deliveryPoint, "07");
  QCOMPARE(entries[2].check.failure, "Invalid Address");
  QCOMPARE(entries[4].check.day, today.addDays(-9));
  for (const int forgotten : {1, 3, 5}) {
    QVERIFY(!entries[forgotten].check.day.isValid());
  }
  CheckHistory(folder.filePath("no such folder/checks.sqlite")).remember(entries, today);
}

}  // namespace postwright::addressbook

QTEST_GUILESS_MAIN(postwright::addressbook::BookTest)
#include "BookTest.moc"
