// The table of formats: how a format is recognised, and what must agree with the table.

#include <QRegularExpression>
#include <QTest>

#include "tests/addressbook/TestFolder.h"

namespace postwright::addressbook {

class FormatsTest : public QObject {
  Q_OBJECT

 private slots:
  void tellsByContent_data();
  void tellsByContent();
  void readsLdif_data();
  void readsLdif();
  void saysWhatToDo_data();
  void saysWhatToDo();
  void theDesktopKnowsThem();

 private:
  TestFolder _folder;
};

void FormatsTest::tellsByContent_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<QByteArray>("bytes");
  QTest::addColumn<QString>("ending");  // the usual one of the kind that it is
  const QByteArray card = "BEGIN:VCARD\nFN:a\nEND:VCARD\n";
  const QString wide = QString::fromUtf8(card).prepend(QChar(0xFEFF));
  QTest::newRow("vCard named CSV") << "a.csv" << QByteArray("\n\n" + card) << "vcf";
  QTest::newRow("vCard in UTF-16")
      << "a.txt" << QByteArray(reinterpret_cast<const char*>(wide.utf16()), wide.size() * 2)
      << "vcf";
  QTest::newRow("CSV named for a book") << "a.pwbook" << QByteArray("Name,Street\na,b\n") << "csv";
  QTest::newRow("LDIF named text") << "a.txt" << QByteArray("dn: cn=a\ncn: a\n") << "ldif";
  QTest::newRow("CSV named for a workbook")
      << "a.xlsx" << QByteArray("Name,Street\na,b\n") << "csv";
  QTest::newRow("empty, named for a workbook") << "a.ods" << QByteArray() << "ods";
  QTest::newRow("empty, named") << "a.VCF" << QByteArray() << "vcf";
  QTest::newRow("empty, unnamed") << "a" << QByteArray("\n") << "pwbook";
}

void FormatsTest::tellsByContent() {
  QFETCH(QString, name);
  QFETCH(QByteArray, bytes);
  QTEST(openBookFile(_folder.put(name, bytes))->format().endings.first(), "ending");
}

// Records as written by mail programs and directories.
void FormatsTest::readsLdif_data() {
  QTest::addColumn<QByteArray>("records");
  QTest::addColumn<QStringList>("entries");  // "Kind: label"
  QTest::newRow("mail program, two addresses")
      << QByteArray(
             "dn: cn=Zoe Li,mail=z@x.example\r\nobjectclass: mozillaAbPersonAlpha\r\n"
             "givenName: Zoe\r\nsn: Li\r\ncn: Zoe Li\r\nmail: z@x.example\r\n"
             "mozillaHomeStreet: 1 Elm St\r\nmozillaHomeStreet2: Apt 4\r\n"
             "mozillaHomeLocalityName: Reno\r\nmozillaHomeState: NV\r\n"
             "mozillaHomePostalCode: 89501\r\nmozillaHomeCountryName: USA\r\n"
             "street: 2 Oak St\r\nl: Elko\r\nst: NV\r\npostalCode: 89801\r\no: Acme\r\n")
      << QStringList{"Home: Zoe Li\n1 Elm St\nApt 4\nReno, NV 89501",
                     "Work: Zoe Li\nAcme\n2 Oak St\nElko, NV 89801"};
  QTest::newRow("directory: folds, base64, several records, a group")
      << QByteArray(
             "version: 1\n# people\ndn:: Y249Sm9zw6k=\ncn:: Sm9zw6kgUGXDsWE=\n"
             "homePostalAddress: 1 Elm\n  St $ Reno, NV 89501\n\n\n"
             "dn: cn=Al\ngivenname: Al\nsn;lang-en: Roe\nsn: Other\npostOfficeBox: 7\nl: "
             "Reno\nst: NV\n"
             "postalCode: 89501\nc: DE\n\ndn: cn=All\ncn: All\nmember: cn=Al\n\n"
             "dn: cn=Ed\ncn: Ed")
      << QStringList{": José Peña\n1 Elm St\nReno, NV 89501",
                     ": Al Roe\nPO Box 7\nReno, NV 89501\nGermany", ": Ed"};
}

void FormatsTest::readsLdif() {
  QFETCH(QByteArray, records);
  const std::unique_ptr<BookFile> book = openBookFile(_folder.put("a.ldif", records));
  QStringList read;
  for (const Entry& entry : book->entries()) {
    read += entry.kind + ": " + entry.label;
  }
  QTEST(read, "entries");
  QVERIFY(!book->format().isWritable());
}

void FormatsTest::saysWhatToDo_data() {
  QTest::addColumn<QByteArray>("bytes");
  QTest::addColumn<QString>("says");
  QTest::newRow("old workbook") << QByteArray("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1\0\0", 10)
                                << "Save it as .xlsx or as CSV";
  QTest::newRow("page named as a workbook")
      << QByteArray("<html><table><tr><td>Name</td></tr></table>") << "save it as .xlsx";
  QTest::newRow("LDIF without a record") << QByteArray("version: 1\n\n# none\n") << "dn:";
  QTest::newRow("picture") << QByteArray("\x89PNG\r\n\x1A\n\0\0", 10) << "The program opens: ";
}

void FormatsTest::saysWhatToDo() {
  QFETCH(QByteArray, bytes);
  QFETCH(QString, says);
  const QString refusal = TestFolder::refusal(_folder.put("a.xls", bytes));
  QVERIFY2(refusal.contains(says), qUtf8Printable(refusal));
}

// The desktop offers the program for the files it opens, and for no others.
void FormatsTest::theDesktopKnowsThem() {
  QFile entry(QStringLiteral(POSTWRIGHT_DESKTOP_ENTRY));
  QVERIFY(entry.open(QIODevice::ReadOnly));
  static const QRegularExpression line("^MimeType=(.*)$", QRegularExpression::MultilineOption);
  QStringList offered =
      line.match(QString::fromUtf8(entry.readAll())).captured(1).split(';', Qt::SkipEmptyParts);
  QStringList known;
  for (const BookFormat* const format : bookFormats()) {
    known += format->mimeTypes;
  }
  offered.sort();
  known.sort();
  QCOMPARE(offered, known);
}

}  // namespace postwright::addressbook

QTEST_GUILESS_MAIN(postwright::addressbook::FormatsTest)
#include "FormatsTest.moc"
