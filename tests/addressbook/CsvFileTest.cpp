// CSV: what is not changed stays byte for byte, what is changed comes back as the same label.

#include <QSettings>
#include <QStandardPaths>
#include <QTest>

#include "apps/addressbook/formats/csv/CsvFile.h"
#include "apps/tables/ColumnGuess.h"
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
  void readsFilesAsTheyCome_data();
  void readsFilesAsTheyCome();
  void readsOddFiles_data();
  void readsOddFiles();
  void removesOneOfTwo();
  void dividesByNothing();
  void guessesColumns_data();
  void guessesColumns();
  void anOpenQuoteCostsItsRow_data();
  void anOpenQuoteCostsItsRow();
  void refusesWithLine_data();
  void refusesWithLine();
  void readsAsChosen_data();
  void readsAsChosen();
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
  QTest::newRow("UTF-16 without a mark") << utf16(u"Name,Street\nJ,old\nLi,x");
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
  // Removed, saved and restored: nothing is lost.
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
      tables::guessColumns({"First name", "Middle name", "Last name", "Company", "Address 1",
                            "Address 2", "City", "State", "ZIP", "ZIP+4"},
                           {})
          .first()
          .mapping;
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
      << "24500";
  QTest::newRow("Spanish") << "Nombre,Apellidos,Dirección,Ciudad,Código postal"
                           << "12457";
  QTest::newRow("one column") << "Whatever"
                              << "4";
  QTest::newRow("nothing known") << "a,b"
                                 << "00";
}

// Files as contact programs, customer databases and clubs write them.
void CsvFileTest::readsFilesAsTheyCome_data() {
  QTest::addColumn<QByteArray>("file");
  QTest::addColumn<QStringList>("entries");  // "Kind: label"
  QTest::newRow("web mail")
      << QByteArray(
             "First Name,Middle Name,Last Name,Name Prefix,Name Suffix,Organization Name,Notes,"
             "Labels,E-mail 1 - Label,E-mail 1 - Value,Address 1 - Label,Address 1 - Country,"
             "Address 1 - Street,Address 1 - Extended Address,Address 1 - City,"
             "Address 1 - Region,Address 1 - Postal Code,Address 1 - PO Box,"
             "Address 2 - Label,Address 2 - Street,Address 2 - City,Address 2 - Region,"
             "Address 2 - Postal Code\n"
             "Jane,Q,Doe,Dr.,Jr.,Acme,,* myContacts,* ,j@x.example,* Home,US,12 Main St,Apt "
             "4,Austin,"
             "TX,78701,,Work,1 Elm St,Reno,NV,89501\n"
             "Li,,Wu,,,,,* myContacts,* ,l@x.example,Home,DE,Weg 1,,Berlin,,10115,,,,,,\n")
      << QStringList{"Home: Dr. Jane Q Doe Jr.\nAcme\n12 Main St\nApt 4\nAustin, TX 78701",
                     "Work: Dr. Jane Q Doe Jr.\nAcme\n1 Elm St\nReno, NV 89501",
                     "Home: Li Wu\nWeg 1\nBerlin 10115\nGermany"};
  QTest::newRow("office")
      << QByteArray(
             "First Name,Last Name,Title,Suffix,Company,Job Title,Business Street,Business Street "
             "2,"
             "Business City,Business State,Business Postal Code,Business Country/Region,"
             "Home Street,Home City,Home State,Home Postal Code,Home Country/Region,Other Street\n"
             "Al,Roe,Mr.,,Acme,Clerk,1 Elm St,Ste 5,Reno,NV,89501,United States of America,"
             "9 Oak St,Boise,ID,83702,,\n"
             "Bo,Low,,,Best Co,Boss,,,,,,,2 Ash St,Boise,ID,83702,,\n")
      << QStringList{"Home: Mr. Al Roe\n9 Oak St\nBoise, ID 83702",
                     "Business: Mr. Al Roe\nAcme\n1 Elm St\nSte 5\nReno, NV 89501",
                     "Home: Bo Low\n2 Ash St\nBoise, ID 83702"};
  QTest::newRow("customers, mostly empty shipping")
      << QByteArray(
             "Salutation,First Name,Last Name,Title,Account Name,Shipping Street,Shipping City,"
             "Shipping State/Province,Shipping Zip/Postal Code,Mailing Street,Mailing City,"
             "Mailing State/Province,Mailing Zip/Postal Code,Mailing Country\n"
             "Ms.,Zoe,Li,CEO,Acme,,,,,1 Elm St,Reno,NV,89501,United States\n"
             "Mr.,Al,Roe,Clerk,Best Co,9 Dock Rd,Reno,NV,89501,1 Elm St,Reno,NV,89501,\n"
             "Mr.,Ed,Poe,Clerk,Best Co,1 ELM ST,Reno,NV,89501,1 Elm St.,Reno,NV,89501,\n")
      << QStringList{"Mailing: Ms. Zoe Li\nAcme\n1 Elm St\nReno, NV 89501",
                     "Mailing: Mr. Al Roe\nBest Co\n1 Elm St\nReno, NV 89501",
                     "Shipping: Mr. Al Roe\nBest Co\n9 Dock Rd\nReno, NV 89501",
                     "Mailing: Mr. Ed Poe\nBest Co\n1 Elm St.\nReno, NV 89501"};
  QTest::newRow("marketing")
      << QByteArray(
             "Record ID,First Name,Last Name,Email,Company Name,Street Address,"
             "City,State/Region,Postal Code,Country/Region\n"
             "7,Zoe,Li,z@x.example,Acme,1 Elm St,Reno,NV,89501,Canada\n")
      << QStringList{": Zoe Li\nAcme\n1 Elm St\nReno, NV 89501\nCanada"};
  QTest::newRow("mail program")
      << QByteArray(
             "First Name,Last Name,Display Name,Primary Email,Home Address,Home Address 2,Home "
             "City,"
             "Home State,Home ZipCode,Home Country,Work Address,Work Address 2,Work City,"
             "Work State,Work ZipCode,Organization\n"
             "Zoe,Li,Zoe Li,z@x.example,1 Elm St,Apt 2,Reno,NV,89501,USA,,,,,,Acme\n")
      << QStringList{": Zoe Li\n1 Elm St\nApt 2\nReno, NV 89501"};
  QTest::newRow("web mail of before")
      << QByteArray(
             "Name,Given Name,Additional Name,Family Name,Yomi Name,Name Prefix,Address 1 - Type,"
             "Address 1 - Formatted,Address 1 - Street,Address 1 - City,Address 1 - Region,"
             "Address 1 - Postal Code,Organization 1 - Type,Organization 1 - Name,"
             "Organization 1 - Title\n"
             "Zoe Li,Zoe,,Li,,,* Work,\"One Elm\nReno NV\",1 Elm St,Reno,NV,89501,,Acme,CEO\n")
      << QStringList{"Work: Zoe Li\nAcme\n1 Elm St\nReno, NV 89501"};
  QTest::newRow("customers, states as text")
      << QByteArray(
             "First Name,Last Name,Account Name,Mailing Street,Mailing City,"
             "Mailing State/Province (text only),Mailing Zip/Postal Code,"
             "Mailing Country (text only),Other Street,Other City\n"
             "Zoe,Li,Acme,\"1 Elm St\nSuite 5\",Reno,NV,89501,USA,,\n")
      << QStringList{": Zoe Li\nAcme\n1 Elm St\nSuite 5\nReno, NV 89501"};
  QTest::newRow("orders, with names of their own")
      << QByteArray(
             "Name,Email,Billing Name,Billing Address1,Billing City,Billing Zip,Billing Province,"
             "Shipping Name,Shipping Street,Shipping Address1,Shipping Company,Shipping City,"
             "Shipping Zip,Shipping Province,Shipping Country\n"
             "#1001,z@x.example,Al Roe,9 Oak St,Reno,89502,NV,"
             "Zoe Li,One Elm,1 Elm St,Acme,Reno,89501,NV,US\n")
      << QStringList{"Billing: Al Roe\n9 Oak St\nReno, NV 89502",
                     "Shipping: Zoe Li\nAcme\n1 Elm St\nReno, NV 89501"};
  QTest::newRow("club")
      << QByteArray(
             "Member #,Family Name,First Name(s),Addr Line 1,Addr Line 2,City/Town,State/Prov,"
             "Zip/Postal,Home Phone,Primary Contact\n"
             "7,Doe,Jo & Al,1 Elm St,Apt 4,Reno,NV,89501,555-0101,Al\n")
      << QStringList{": Jo & Al Doe\n1 Elm St\nApt 4\nReno, NV 89501"};
  QTest::newRow("parish, title above")
      << QByteArray(
             "sep=;\nSt. Brigid 2026;;;;;;\n"
             "First Name(s);Last Name;Mailing Name;Salutation;Mailing Address;City;State;Zip\n"
             "Jo & Al;Doe;The Doe Family;Jo and Al;1 Elm St;Reno;NV;89501\n")
      << QStringList{": The Doe Family\n1 Elm St\nReno, NV 89501"};
  QTest::newRow("newsletter, the address in one cell")
      << QByteArray(
             "Email Address,First Name,Last Name,Address,Phone Number\n"
             "z@x.example,Zoe,Li,1 Elm St  Apt 2  Reno  NV  89501  US,555-0101\n"
             "a@x.example,Al,Roe,1 Elm St  Reno  NV  89501-1234,\n"
             "b@x.example,Bo,Low,Weg 1  Berlin  10115  DE,\n"
             "c@x.example,Cy,Poe,somewhere  in Reno,\n")
      << QStringList{": Zoe Li\n1 Elm St\nApt 2\nReno, NV 89501",
                     ": Al Roe\n1 Elm St\nReno, NV 89501-1234",
                     ": Bo Low\nWeg 1\nBerlin\n10115\nGermany", ": Cy Poe\nsomewhere  in Reno"};
  QTest::newRow("no names, zeros lost")
      << QByteArray("Zoe Li,1 Elm St,Boston,MA,2134\nAl Roe,1 Elm St,Salem,MA,1970\n")
      << QStringList{": Zoe Li\n1 Elm St\nBoston, MA 2134", ": Al Roe\n1 Elm St\nSalem, MA 1970"};
  QTest::newRow("no names at all")
      << QByteArray(
             "Zoe Li,1 Elm St,Reno,NV,89501,555-0101\n"
             "Al Roe,PO Box 7,Boise,ID,83702,555-0102\n")
      << QStringList{": Zoe Li\n1 Elm St\nReno, NV 89501", ": Al Roe\nPO Box 7\nBoise, ID 83702"};
  QTest::newRow("names that say nothing")
      << QByteArray("a,b,c\nZoe Li,1 Elm St,\"Reno, NV 89501\"\n")
      << QStringList{": Zoe Li\n1 Elm St\nReno, NV 89501"};
}

// What must not mislead a guess.
void CsvFileTest::readsOddFiles_data() {
  QTest::addColumn<QByteArray>("file");
  QTest::addColumn<QStringList>("entries");
  const QString zoe = ": Zoe Li\n1 Elm St\nReno, NV 89501";
  QTest::newRow("full name, mostly empty")
      << QByteArray(
             "Name,First Name,Last Name,Street,City,State,Zip\n"
             ",Zoe,Li,1 Elm St,Reno,NV,89501\n,Al,Roe,2 Elm St,Reno,NV,89501\n"
             "The Does,Ed,Doe,3 Elm St,Reno,NV,89501\n")
      << QStringList{zoe, ": Al Roe\n2 Elm St\nReno, NV 89501",
                     ": Ed Doe\n3 Elm St\nReno, NV 89501"};
  QTest::newRow("the whole address beside its pieces")
      << QByteArray(
             "Name,Address,Street,City,State,Zip\nZoe Li,\"One Elm, Reno\",1 Elm "
             "St,Reno,NV,89501\n")
      << QStringList{zoe};
  QTest::newRow("a unit in a column of its own")
      << QByteArray(
             "Name,Mailing Address,Unit,City,State,Zip\nZoe Li,1 Elm St,Apt 2,Reno,NV,89501\n")
      << QStringList{": Zoe Li\n1 Elm St\nApt 2\nReno, NV 89501"};
  QTest::newRow("a title that is none")
      << QByteArray("Title,Name,Street,City,State,Zip\nBoss,Zoe Li,1 Elm St,Reno,NV,89501\n")
      << QStringList{zoe};
  QTest::newRow("numbers in half the rows are no ZIP codes")
      << QByteArray(
             "a,b,c,d\nZoe Li,1 Elm St,\"Reno, NV 89501\",12345\nAl Roe,2 Elm St,\"Elko, NV "
             "89801\",call first\n")
      << QStringList{zoe, ": Al Roe\n2 Elm St\nElko, NV 89801"};
  QTest::newRow("a note after the street is not a name")
      << QByteArray("a,b,c\n1 Elm St,\"Reno, NV 89501\",likes long walks\n")
      << QStringList{": 1 Elm St\nReno, NV 89501"};
  QTest::newRow("nor are words beside one")
      << QByteArray("Name,b,c,d\nZoe Li,best friend,1 Elm St,\"Reno, NV 89501\"\n")
      << QStringList{zoe};
  QTest::newRow("ZIP code of nine digits")
      << QByteArray("a,b,c,d,e\nZoe Li,1 Elm St,Reno,NV,895011234\n") << QStringList{zoe + "1234"};
  QTest::newRow("an e-mail address is not a street")
      << QByteArray("a,b,c,d\nZoe Li,1 zoe@x.example,1 Elm St,\"Reno, NV 89501\"\n")
      << QStringList{zoe};
  QTest::newRow("several lines above")
      << QByteArray(
             "St. Brigid\nList of 2026\n\nCompany\nfor the mailing\n"
             "Name,Street,City,State,Zip\nZoe Li,1 Elm St,Reno,NV,89501\n")
      << QStringList{zoe};
  QTest::newRow("the delimiter named in capitals, no names")
      << QByteArray("SEP=;\r\nZoe Li, Esq;1 Elm St;Reno, NV 89501\r\n")
      << QStringList{": Zoe Li, Esq\n1 Elm St\nReno, NV 89501"};
  QTest::newRow("one row, no names")
      << QByteArray("Zoe Li,1 Elm St,\"Reno, NV 89501\"\n") << QStringList{zoe};
}

void CsvFileTest::readsOddFiles() {
  readsFilesAsTheyCome();
}

// The entries are those of the file; a corrected street goes where it came from, and nowhere else.
void CsvFileTest::readsFilesAsTheyCome() {
  QFETCH(QByteArray, file);
  const QString path = put(file);
  const std::unique_ptr<BookFile> book = openBookFile(path);
  QList<Entry> entries = book->entries();
  QStringList read;
  for (const Entry& entry : entries) {
    read += entry.kind + ": " + entry.label;
  }
  QTEST(read, "entries");
  book->write(path, entries);
  QCOMPARE(bytes(), file);
  QByteArray changed = file;
  for (Entry& entry : entries) {
    entry.label.replace("1 Elm St", "1 ELM ST");
  }
  book->write(path, entries);
  QCOMPARE(bytes(), changed.replace("1 Elm St", "1 ELM ST"));
}

// One of a row's two addresses is removed, then put back; a row goes with its last address.
void CsvFileTest::removesOneOfTwo() {
  const QByteArray file =
      "Name,Home Street,Home City,Work Street,Work City\nZoe,1 A St,Reno,2 B St,Elko\n";
  const QString path = put(file);
  const std::unique_ptr<BookFile> book = openBookFile(path);
  const QList<Entry> entries = book->entries();
  QCOMPARE(entries.size(), 2);
  book->write(path, {entries[1]});
  QCOMPARE(bytes(), "Name,Home Street,Home City,Work Street,Work City\nZoe,,,2 B St,Elko\n");
  book->write(path, {});
  QCOMPARE(bytes(), "Name,Home Street,Home City,Work Street,Work City\n");
  book->write(path, entries);
  QCOMPARE(bytes(), file);
}

// Not possible in a dialog, but the settings may have been edited.
void CsvFileTest::dividesByNothing() {
  const tables::ColumnMapping none({tables::ColumnRole::None});
  QCOMPARE(none.divide("a\nb", {"x"}).cells, QStringList{"x"});
  QCOMPARE(tables::ColumnMapping().divide("a", {}).cells, QStringList());
}

void CsvFileTest::guessesColumns() {
  QFETCH(QString, header);
  QString roles;
  const tables::ColumnMapping mapping = tables::guessColumns(header.split(','), {}).first().mapping;
  for (const tables::ColumnRole role : mapping.roles()) {
    roles += QString::number(static_cast<int>(role), 16);
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
  // Many of them in a long text: reading the text again for each would never end.
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
  QTest::newRow("binary") << QByteArray("Name\na\0b", 8) << "not a text file";
  QTest::newRow("half UTF-16") << QByteArray("\xFF\xFEN\0a", 5) << "UTF-16";
}

void CsvFileTest::refusesWithLine() {
  QFETCH(QByteArray, file);
  QFETCH(QString, says);
  const QString refusal = TestFolder::refusal(put(file));
  QVERIFY2(refusal.contains(says), qUtf8Printable(refusal));
}

// What cannot be guessed the user says; the file is read and written that way, and it is
// remembered.
void CsvFileTest::readsAsChosen_data() {
  using tables::TextEncoding;
  QTest::addColumn<QByteArray>("file");
  QTest::addColumn<int>("encoding");
  QTest::addColumn<int>("skipped");
  QTest::addColumn<QString>("label");  // empty: it cannot be read so
  const QByteArray mac =
      "Name,Street,M\nJos\x8E Pe\x96"
      "a,old\n";
  QTest::newRow("Mac Roman") << mac << int(TextEncoding::MacRoman) << 0 << "José Peña\nold";
  QTest::newRow("not UTF-8") << mac << int(TextEncoding::Utf8) << 0 << "";
  QTest::newRow("nor UTF-16") << mac + "x" << int(TextEncoding::Utf16LittleEndianBare) << 0 << "";
  QTest::newRow("UTF-8 as Windows-1252") << QByteArray("Name,Street,W\nJos\xC3\xA9,old\n")
                                         << int(TextEncoding::Windows1252) << 0 << "JosÃ©\nold";
  QTest::newRow("a row more above")
      << QByteArray("Name,Street,A\nnot,this\nName,Street,x\nLi,old,\n") << int(TextEncoding::Utf8)
      << 2 << "Li\nold";
  QTest::newRow("more rows than there are")
      << QByteArray("Name,Street,R\nLi,old\n") << int(TextEncoding::Utf8) << 9 << "";
}

void CsvFileTest::readsAsChosen() {
  QFETCH(QByteArray, file);
  QFETCH(int, encoding);
  QFETCH(int, skipped);
  QFETCH(QString, label);
  CsvFile book(tables::TextFile::read(put(file)));
  tables::TableChoice choice = book.choice();
  choice.encoding = static_cast<tables::TextEncoding>(encoding);
  choice.skippedRows = skipped;
  try {
    book.choose(book.guess(choice));
  } catch (const tables::FileError& error) {
    QVERIFY2(label.isEmpty() && !error.message().isEmpty(), qUtf8Printable(error.message()));
    QCOMPARE(book.choice().skippedRows, 0);
    return;
  }
  QCOMPARE(book.entries().first().label, label);
  book.rememberChoice();
  const bool isGuessedElse = encoding == int(tables::TextEncoding::Windows1252);
  CsvFile again(tables::TextFile::read(put(file)));
  QCOMPARE(again.entries().first().label == label, !isGuessedElse);
  QList<Entry> entries = book.entries();
  entries[0].label.replace("old", "12 Oak");
  book.write(put(file), entries);
  QByteArray changed = file;
  QCOMPARE(bytes(), changed.replace("old", "12 Oak"));
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
