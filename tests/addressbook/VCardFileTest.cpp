// vCard: three versions, keeping what is not on a label, folding and escapes.

#include <QTest>

#include "apps/tables/LabelText.h"
#include "tests/addressbook/TestFolder.h"

namespace postwright::addressbook {

namespace {

QByteArray card(const QByteArray& version, const QByteArray& lines) {
  return "BEGIN:VCARD\r\nVERSION:" + version + "\r\n" + lines + "END:VCARD\r\n";
}

}  // namespace

class VCardFileTest : public QObject {
  Q_OBJECT

 private slots:
  void reads_data();
  void reads();
  void changesOnlyTheAddress_data();
  void changesOnlyTheAddress();
  void keepsAllElse();
  void addsAndRemoves();
  void takesCardsOfManyAddresses();
  void refuses_data();
  void refuses();

 private:
  QString put(const QByteArray& bytes) const { return _folder.put("book.vcf", bytes); }
  QByteArray bytes() const { return _folder.bytes("book.vcf"); }

  TestFolder _folder;
};

void VCardFileTest::reads_data() {
  QTest::addColumn<QByteArray>("version");
  QTest::addColumn<QByteArray>("lines");
  QTest::addColumn<QString>("labels");  // separated by a bar
  QTest::newRow("composed") << QByteArray("4.0")
                            << QByteArray(
                                   "FN:Jane Doe\r\nORG:ABC\\, Inc.;North\r\nADR:;;12 Main St,Apt "
                                   "4;Austin;TX;78701;USA\r\n")
                            << "Jane Doe\nABC, Inc.\n12 Main St\nApt 4\nAustin, TX 78701";
  QTest::newRow("folds, group, case")
      << QByteArray("4.0")
      << QByteArray(
             "item1.fn:Jane\r\n  D\r\n\toe\r\nItem1.Adr;type=home:;;12 Main\\;\\n "
             "St;Reno;NV;89501;Canada\r\n")
      << "Jane Doe\n12 Main;\n St\nReno, NV 89501\nCanada";
  QTest::newRow("label parameter")
      << QByteArray("4.0")
      << QByteArray("FN:x\r\nADR;LABEL=\"A: ^'b^'; c\\nReno, NV^n^^\";TYPE=work:;;;;;;\r\n")
      << "A: \"b\"; c\nReno, NV\n^";
  QTest::newRow("labels by type")
      << QByteArray("3.0")
      << QByteArray(
             "FN:x\r\nADR;TYPE=work,pref:;;1 A St;;;;\r\nADR;TYPE=HOME:12;;;;;;\r\n"
             "LABEL;TYPE=home:of home\\nline 2\r\nLABEL;TYPE=dom:alone\r\n")
      << "x\n1 A St|of home\nline 2|alone";
  QTest::newRow("2.1")
      << QByteArray("2.1")
      << QByteArray(
             "FN;CHARSET=ISO-8859-1;ENCODING=QUOTED-PRINTABLE:Pe=F1a\r\n"
             "ADR;HOME;QUOTED-PRINTABLE:;;1 Main=0D=0AApt =\r\n4, rear;Reno;NV;89501\r\n")
      << "Peña\n1 Main\nApt 4, rear\nReno, NV 89501";
  QTest::newRow("no address, card inside")
      << QByteArray("2.1")
      << QByteArray("FN:Jane\r\nAGENT:\r\nBEGIN:VCARD\r\nFN:Bob\r\nADR:;;x;;;;\r\nEND:VCARD\r\n")
      << "Jane";
  QTest::newRow("label without a name")
      << QByteArray("3.0")
      << QByteArray("FN:Jane\r\nADR:;;1 A St;Reno;NV;89501;\r\nLABEL:1 A St\\nReno NV 89501\r\n")
      << "Jane\n1 A St\nReno NV 89501";
  QTest::newRow("label of before")
      << QByteArray("4.0")
      << QByteArray(
             "FN:Jane\r\nADR;LABEL=\"Jane\\n9 Old St\\nReno NV 89501\":;;1 A St;Reno;NV;89501;\r\n")
      << "Jane\n1 A St\nReno, NV 89501";
  QTest::newRow("fuller label") << QByteArray("4.0")
                                << QByteArray(
                                       "FN:Jane\r\nADR;LABEL=\"The Does\\n1 A St\\nRear\\nReno NV "
                                       "89501\":;;1 A St;;;89501;\r\n")
                                << "The Does\n1 A St\nRear\nReno NV 89501";
  QTest::newRow("home and work")
      << QByteArray("4.0")
      << QByteArray(
             "FN:Jane\r\nORG:Acme\r\nADR;TYPE=home:;;1 A St;Reno;NV;89501;\r\n"
             "ADR;TYPE=work:;;2 B St;Reno;NV;89501;\r\n")
      << "Jane\n1 A St\nReno, NV 89501|Jane\nAcme\n2 B St\nReno, NV 89501";
  QTest::newRow("not the encoding")
      << QByteArray("2.1") << QByteArray("FN:x\r\nADR;X=QUOTED-PRINTABLE:;;1 A;C=3D;;;\r\n")
      << "x\n1 A\nC=3D";
  QTest::newRow("box") << QByteArray("3.0")
                       << QByteArray("FN:x\r\nORG:x\r\nADR:12;;;Reno;NV;89501;\r\n")
                       << "x\nPO Box 12\nReno, NV 89501";
}

void VCardFileTest::reads() {
  QFETCH(QByteArray, version);
  QFETCH(QByteArray, lines);
  QStringList labels;
  for (const Entry& entry : openBookFile(put(card(version, lines)))->entries()) {
    labels += entry.label;
  }
  QTEST(labels.join('|'), "labels");
}

void VCardFileTest::changesOnlyTheAddress_data() {
  QTest::addColumn<QByteArray>("version");
  QTest::addColumn<QByteArray>("before");
  QTest::addColumn<QString>("label");
  QTest::addColumn<QByteArray>("after");
  const QByteArray person = "FN:Jane Doe\r\nORG:Acme;West\r\n";
  const QByteArray rest = "TEL:1\r\nX-ODD;A=\"b;c\":d\r\n e\r\n";
  QTest::newRow("4.0, corrected")
      << QByteArray("4.0")
      << person + "ADR;TYPE=work;X=1:;;12 Main St;Austin;TX;78701;USA\r\n" + rest
      << "JANE DOE\nACME\n12 MAIN ST\nAUSTIN TX 787011234"
      << person + "ADR;TYPE=work;X=1:;;12 MAIN ST;AUSTIN;TX;787011234;USA\r\n" + rest;
  QTest::newRow("3.0, corrected")
      << QByteArray("3.0") << person + "i.ADR;TYPE=work:;;12 Main St;Austin;TX;78701;\r\n" + rest
      << "JANE DOE\nACME\n12 MAIN ST, 4; 5\nAUSTIN TX 78701"
      << person + "i.ADR;TYPE=work:;;12 MAIN ST\\, 4\\; 5;AUSTIN;TX;78701;\r\n" + rest;
  QTest::newRow("2.1, label there")
      << QByteArray("2.1")
      << person + "ADR;HOME:;;1 A St;Reno;NV;89501;\r\nLABEL;HOME:old\r\n" + rest
      << "Jane Doe\nAcme\n2 Peña St\nReno, NV 89501"
      << person +
             "ADR;HOME;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:;;2 Pe=C3=B1a St;Reno;NV;8=\r\n"
             "9501;\r\nLABEL;HOME;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:Jane "
             "Doe=0D=0AAcme=0D=0A=\r\n"
             "2 Pe=C3=B1a St=0D=0AReno, NV 89501\r\n" +
             rest;
  QTest::newRow("names edited") << QByteArray("4.0") << person + "ADR:;;1 A St;Reno;NV;89501;\r\n"
                                << "Jo Roe\nBest Co\n1 A St\nReno, NV 89501"
                                << QByteArray(
                                       "FN:Jo Roe\r\nORG:Best Co;West\r\n"
                                       "ADR:;;1 A St;Reno;NV;89501;\r\n");
  QTest::newRow("address given") << QByteArray("4.0") << QByteArray("FN:Jo\r\n")
                                 << "Jo\n1 A St\nReno, NV 89501"
                                 << QByteArray("FN:Jo\r\nADR:;;1 A St;Reno;NV;89501;\r\n");
  QTest::newRow("all components")
      << QByteArray("3.0")
      << QByteArray("FN:Jo\r\nADR:12;Floor 2;1 A St,Rear;Reno;NV;89501;USA\r\n")
      << "JO\n1 A ST\nREAR\nFLOOR 2\nPO BOX 12\nRENO NV 89501-1234"
      << QByteArray("FN:Jo\r\nADR:12;FLOOR 2;1 A ST,REAR;RENO;NV;89501-1234;USA\r\n");
  QTest::newRow("box in words, no state")
      << QByteArray("3.0") << QByteArray("FN:Jo\r\nADR:PO Box 9;;1 A St;Reno;;89501;\r\n")
      << "Jo\n2 A St\nPO BOX 9\nReno 89501"
      << QByteArray("FN:Jo\r\nADR:PO BOX 9;;2 A St;Reno;;89501;\r\n");
  QTest::newRow("another country")
      << QByteArray("3.0") << QByteArray("FN:Jo\r\nADR:;2. OG;Weg 1;Berlin;;10115;Germany\r\n")
      << "Jo\nWeg 2\n2. OG\nBerlin 10115\nGermany"
      << QByteArray("FN:Jo\r\nADR:;2. OG;Weg 2;Berlin;;10115;Germany\r\n");
  QTest::newRow("what the address cannot say")
      << QByteArray("4.0") << QByteArray("FN:Jo\r\nADR:;;1 A St;Reno;NV;89501;\r\n")
      << "The Roes\\new\n\nJo\n1 A St\nReno, NV 89501"
      << QByteArray(
             "FN:The Roes\\\\new\r\nADR;LABEL=\"The Roes\\\\new\\n\\nJo\\n1 A St\\nReno, NV "
             "89501\":;;Jo,1 A St;Reno;NV\r\n ;89501;\r\n");
}

void VCardFileTest::changesOnlyTheAddress() {
  QFETCH(QByteArray, version);
  QFETCH(QByteArray, before);
  QFETCH(QString, label);
  QFETCH(QByteArray, after);
  const QString path = put(card(version, before));
  const std::unique_ptr<BookFile> file = openBookFile(path);
  QList<Entry> entries = file->entries();
  entries[0].label = label;
  file->write(path, entries);
  QCOMPARE(bytes(), card(version, after));
  // Case and punctuation of a line may differ if the card has no text of the label.
  const QString read = openBookFile(path)->entries().first().label;
  QVERIFY2(tables::sameLetters(read, label) && read.count('\n') == label.count('\n'),
           qUtf8Printable(read));
}

void VCardFileTest::keepsAllElse() {
  const QByteArray text =
      "\xEF\xBB\xBF\n\nnoise\n" +
      card("3.0",
           "N:Doe;Jane\r\nPHOTO;ENCODING=b:AAAA\r\n"
           " BBBB\r\n\r\nFN:Jane\r\nADR:;;1 A St;;;;\r\nADR;TYPE=x:;;2 B St;;;;\r\nodd line\r\n") +
      "\n" + card("4.0", "FN:Li\r\n") + "tail";
  const QString path = put(text);
  const std::unique_ptr<BookFile> file = openBookFile(path);
  QList<Entry> entries = file->entries();
  QCOMPARE(entries.size(), 3);
  file->write(path, entries);
  QCOMPARE(bytes(), text);
  file->write(path, {entries[1], entries[2]});
  QByteArray without = text;
  QCOMPARE(bytes(), without.replace("ADR:;;1 A St;;;;\r\n", ""));
  file->write(path, entries);
  QCOMPARE(bytes(), text);
}

void VCardFileTest::addsAndRemoves() {
  const QString path = put(card("3.0", "FN:Jane\r\nN:x\r\nADR:;;1 A St;;;;\r\n"));
  const std::unique_ptr<BookFile> file = openBookFile(path);
  const QString label =
      "Ann B Peña\n" + QString("very long ").repeated(20).trimmed() + "\nReno, NV 89501";
  file->write(path, {{5, label, {}}, {6, "12 Main St\nReno, NV 89501", {}}});
  const QList<Entry> read = openBookFile(path)->entries();
  QCOMPARE(read.size(), 2);
  QCOMPARE(read[0].label, label);
  QVERIFY(bytes().contains("\r\nN:Peña;Ann B;;;\r\n"));
  QVERIFY(bytes().contains("\r\nADR:;;12 Main St;Reno;NV;89501;\r\n"));
  for (const QByteArray& line : bytes().split('\n')) {
    QVERIFY(line.size() <= 76);  // 75 and the carriage return
  }
}

// Searching all labels for each address would not end.
void VCardFileTest::takesCardsOfManyAddresses() {
  constexpr int kMany = 20000;
  QByteArray lines = "FN:x\r\n";
  for (int each = 0; each < kMany; ++each) {
    const QByteArray number = QByteArray::number(each);
    lines +=
        "ADR;TYPE=home:;;" + number + " A St;;;;\r\nLABEL;TYPE=home:x\\n" + number + " A St\r\n";
  }
  const QString path = put(card("3.0", lines));
  const std::unique_ptr<BookFile> file = openBookFile(path);
  QList<Entry> entries = file->entries();
  QCOMPARE(entries.size(), kMany);
  QCOMPARE(entries.last().label, "x\n19999 A St");
  for (Entry& entry : entries) {
    entry.label.replace("A St", "B ST");
  }
  file->write(path, entries);
  QCOMPARE(bytes().count(" B ST"), 2 * kMany);
}

void VCardFileTest::refuses_data() {
  QTest::addColumn<QByteArray>("file");
  QTest::addColumn<QString>("says");
  QTest::newRow("cut short") << card("3.0", "FN:a\r\n") + "BEGIN:VCARD\r\nFN:b"
                             << "line 5";
  QTest::newRow("no card") << QByteArray("Name,Street\n") << "BEGIN:VCARD";
  QTest::newRow("endless address")
      << card("3.0", "ADR:" + QByteArray(2000000, ';') + "\r\n") << "line 3";
  QTest::newRow("endlessly nested") << QByteArray("BEGIN:VCARD\n").repeated(100000) << "line 1";
}

void VCardFileTest::refuses() {
  QFETCH(QByteArray, file);
  QFETCH(QString, says);
  const QString refusal = TestFolder::refusal(put(file));
  QVERIFY2(refusal.contains(says), qUtf8Printable(refusal));
}

}  // namespace postwright::addressbook

QTEST_GUILESS_MAIN(postwright::addressbook::VCardFileTest)
#include "VCardFileTest.moc"
