// CSV: what is not changed stays byte for byte, what is changed comes back as the same label.

#include <QSettings>
#include <QStandardPaths>
#include <QTest>

#include "apps/addressbook/formats/csv/CsvFile.h"
#include "tests/addressbook/TestFolder.h"

namespace postwright::addressbook {

namespace {

QByteArray utf16(QStringView text) {
  return {reinterpret_cast<const char*>(text.utf16()), text.size() * 2};
}

}  // namespace

class CsvFileTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase();
  void keepsWhatIsNotChanged_data();
  void keepsWhatIsNotChanged();
  void dividesLabels_data();
  void dividesLabels();
  void guessesColumns_data();
  void guessesColumns();
  void anOpenQuoteCostsItsRow_data();
  void anOpenQuoteCostsItsRow();
  void refusesWithLine_data();
  void refusesWithLine();
  void growsOutOfWindows1252();
  void guardsFormulas();

 private:
  QString put(const QByteArray& bytes) const { return _folder.put("book.csv", bytes); }
  QByteArray bytes() const { return _folder.bytes("book.csv"); }

  TestFolder _folder;
};

void CsvFileTest::initTestCase() {
  QCoreApplication::setOrganizationName("PostwrightTest");
  QStandardPaths::setTestModeEnabled(true);
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _folder.path({}));
}

// The label of the first row is edited; the bytes of the file differ in its street alone.
void CsvFileTest::keepsWhatIsNotChanged_data() {
  QTest::addColumn<QByteArray>("file");
  QTest::newRow("unknown columns, odd quotes") << QByteArray(
      "id,Name,Street,City,St,Zip,Notes\r\n"
      " 7 ,\"Jane Doe\", old ,Austin,TX,78701,\"a \"\"b\"\"\r\nc\"\r\n"
      "8,\"Li \"Al\" x\", 4 Elm ,Reno,NV,89501\r\n\r\n\r\n"
      "9,Zoe,5 Oak,Reno,NV,89501,,,too,many\r\n\r\n");
  QTest::newRow("tabs, no last break") << QByteArray("Name\tStreet\nJane\told\nLi\t4 Elm");
  QTest::newRow("semicolons, mark, returns")
      << QByteArray("\xEF\xBB\xBFName;Street\rJos\xC3\xA9;old\rLi;\"4; Elm\"\r");
  QTest::newRow("Windows-1252") << QByteArray(
      "Name|Street\nPe\xF1"
      "a|old\n\x80\x81|\x93q\x94\n");
  QTest::newRow("UTF-16") << utf16(u"\uFEFFName,Street\nJ,old\n\U0001F600,x");
}

void CsvFileTest::keepsWhatIsNotChanged() {
  QFETCH(QByteArray, file);
  const QString path = put(file);
  const std::unique_ptr<BookFile> book = openBookFile(path);
  QList<Entry> entries = book->entries();
  QVERIFY(entries.size() >= 2);
  book->write(path, entries);
  QCOMPARE(bytes(), file);
  QVERIFY(entries[0].label.contains("old"));
  entries[0].label.replace("old", "12 Oak");
  QCOMPARE(book->write(path, entries), QStringList());
  QByteArray changed = file;
  changed.replace(" old ", "old").replace("old", "12 Oak").replace(utf16(u"old"), utf16(u"12 Oak"));
  QCOMPARE(bytes(), changed);
  // Removed, saved, brought back: nothing was lost.
  book->write(path, entries.sliced(1));
  QVERIFY(bytes() != changed);
  entries[0].label.replace("12 Oak", "old");
  book->write(path, entries);
  QCOMPARE(bytes(), file);
}

void CsvFileTest::dividesLabels_data() {
  QTest::addColumn<QString>("old");
  QTest::addColumn<QString>("label");
  QTest::addColumn<QString>("cells");
  const QString full = "Dr Jo|Ann|Doe|Acme|1 Main St|Apt 4|Austin|TX|78701|";
  QTest::newRow("corrected") << full << "DR JO ANN DOE\nACME\n1 MAIN ST APT 4\nAUSTIN TX 787011234"
                             << "DR JO|ANN|DOE|ACME|1 MAIN ST APT 4||AUSTIN|TX|78701|1234";
  QTest::newRow("name edited") << full << "Jo Roe\nAcme\n1 Main St\nApt 4\nAustin, TX 78701-1234"
                               << "Jo||Roe|Acme|1 Main St|Apt 4|Austin|TX|78701|1234";
  QTest::newRow("company gone") << full << "Dr Jo Ann Doe\n1 Main St\nAustin, TX 78701"
                                << "Dr Jo|Ann|Doe||1 Main St||Austin|TX|78701|";
  QTest::newRow("new row") << ""
                           << "Jo Roe\nAcme\n1 Main St\nReno, NV 89501"
                           << "Jo||Roe|Acme|1 Main St||Reno|NV|89501|";
  QTest::newRow("street alone") << ""
                                << "1 Main St\nReno, NV 89501"
                                << "||||1 Main St||Reno|NV|89501|";
  QTest::newRow("more streets than columns")
      << full << "Dr Jo Ann Doe\nAcme\n1 Main St\nBldg 2\nApt 4\nAustin, TX 78701"
      << "Dr Jo|Ann|Doe|Acme|1 Main St|Bldg 2\nApt 4|Austin|TX|78701|";
  QTest::newRow("no place") << full << "Dr Jo Ann Doe\nAcme\nsomewhere"
                            << "Dr Jo|Ann|Doe|Acme|somewhere|||||";
  QTest::newRow("below, blank line")
      << full << "Dr Jo Ann Doe\n\n1 Main St\nAustin, TX 78701\nUSA"
      << "||||Dr Jo Ann Doe\n\n1 Main St\nAustin, TX 78701\nUSA|||||";
  QTest::newRow("nothing") << full << ""
                           << "|||||||||";
}

void CsvFileTest::dividesLabels() {
  QFETCH(QString, old);
  QFETCH(QString, label);
  const tables::ColumnMapping mapping =
      tables::ColumnMapping::guess({"First name", "Middle name", "Last name", "Company",
                                    "Address 1", "Address 2", "City", "State", "ZIP", "ZIP+4"});
  const QStringList cells = mapping.divide(label, old.split('|')).cells;
  QTEST(cells.join('|'), "cells");
  const auto letters = [](QString text) { return text.remove(',').remove('-').toUpper(); };
  QCOMPARE(letters(mapping.compose(cells)), letters(label));
}

void CsvFileTest::guessesColumns_data() {
  QTest::addColumn<QString>("header");
  QTest::addColumn<QString>("roles");  // the numbers of tables::ColumnRole
  QTest::newRow("plain") << "ID,Name,Company,Address,City,State,Zip,Phone"
                         << "02345670";
  QTest::newRow("pieces") << "first_name,LAST-NAME,Address Line 1,address_line_2,Postal Code"
                          << "12447";
  QTest::newRow("full name wins")
      << "Name,Given Name,Family Name,Address 1 - Street,Address 1 - City"
      << "20045";
  QTest::newRow("first of several")
      << "Last Name,Business Street,Business City,Home Street,Home City"
      << "20045";
  QTest::newRow("Spanish") << "Nombre,Apellidos,Dirección,Ciudad,Código postal"
                           << "12457";
  QTest::newRow("one column") << "Whatever"
                              << "4";
  QTest::newRow("nothing known") << "a,b"
                                 << "00";
}

void CsvFileTest::guessesColumns() {
  QFETCH(QString, header);
  QString roles;
  const tables::ColumnMapping mapping = tables::ColumnMapping::guess(header.split(','));
  for (const tables::ColumnRole role : mapping.roles()) {
    roles += QString::number(static_cast<int>(role));
  }
  QTEST(roles, "roles");
}

void CsvFileTest::anOpenQuoteCostsItsRow_data() {
  QTest::addColumn<QByteArray>("rows");
  QTest::addColumn<QStringList>("labels");
  QTest::newRow("at the end of its row")
      << QByteArray("a,\"b\nc,\"d\"\ne,f\n") << QStringList{"a\nb", "c\nd", "e\nf"};
  QTest::newRow("inside its row") << QByteArray("\"a,b\n\nc,d\n") << QStringList{"a\nb", "c\nd"};
  QTest::newRow("last") << QByteArray("a,b\nc,\"d") << QStringList{"a\nb", "c\nd"};
  QTest::newRow("well formed") << QByteArray("a,\"b\n\"\"c\"\" d\"\ne,f\n")
                               << QStringList{"a\nb\n\"c\" d", "e\nf"};
  // However many, and however long the text: what reads them anew for each would never end.
  constexpr int kMany = 100000;
  for (const QByteArray& row : {QByteArray("\"a,x\n"), QByteArray("\"\"a,x\n")}) {
    QStringList labels(kMany, row.startsWith("\"\"") ? "\"a\nx" : "a\nx");
    QTest::addRow("many of %s", row.constData()) << row.repeated(kMany) << labels;
  }
}

void CsvFileTest::anOpenQuoteCostsItsRow() {
  QFETCH(QByteArray, rows);
  QFETCH(QStringList, labels);
  const QString path = put("Name,Street\n" + rows);
  const std::unique_ptr<BookFile> file = openBookFile(path);
  QStringList read;
  for (const Entry& entry : file->entries()) {
    read += entry.label;
  }
  QCOMPARE(read, labels);
  QCOMPARE(file->notes().isEmpty(), rows.count('"') % 2 == 0 && rows.size() < 100);
  file->write(path, file->entries());
  QCOMPARE(bytes(), "Name,Street\n" + rows);
}

void CsvFileTest::refusesWithLine_data() {
  QTest::addColumn<QByteArray>("file");
  QTest::addColumn<QString>("says");
  QTest::newRow("endless cell") << "Name,Street\na," + QByteArray(2000000, 'x') << "line 2";
  QTest::newRow("binary") << QByteArray("Name\na\0b", 8) << "no text file";
  QTest::newRow("half UTF-16") << QByteArray("\xFF\xFEN\0a", 5) << "UTF-16";
}

void CsvFileTest::refusesWithLine() {
  QFETCH(QByteArray, file);
  QFETCH(QString, says);
  const QString refusal = TestFolder::refusal(put(file));
  QVERIFY2(refusal.contains(says), qUtf8Printable(refusal));
}

void CsvFileTest::growsOutOfWindows1252() {
  const QString path =
      put("Name\nPe\xF1"
          "a\nother\n");
  const std::unique_ptr<BookFile> book = openBookFile(path);
  QList<Entry> entries = book->entries();
  entries[1].label = QStringLiteral("Łódź");
  QCOMPARE(book->write(path, entries).size(), 1);
  QCOMPARE(bytes(), "\xEF\xBB\xBFName\nPeña\nŁódź\n");
}

void CsvFileTest::guardsFormulas() {
  const QString path = put("Name,Note\nJane,=1+1\n\"-Li\",\" @x\"\n5-3,a=b\n");
  CsvFile file(tables::TextFile::read(path));
  file.writeForSpreadsheet(path, file.entries());
  QCOMPARE(bytes(), "\xEF\xBB\xBFName,Note\nJane,\"'=1+1\"\n\"'-Li\",\"' @x\"\n5-3,a=b\n");
}

}  // namespace postwright::addressbook

QTEST_GUILESS_MAIN(postwright::addressbook::CsvFileTest)
#include "CsvFileTest.moc"
