// The table of formats: how a kind is told, and what must agree with the table.

#include <QRegularExpression>
#include <QTest>

#include "tests/addressbook/TestFolder.h"

namespace postwright::addressbook {

class FormatsTest : public QObject {
  Q_OBJECT

 private slots:
  void tellsByContent_data();
  void tellsByContent();
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
  QTest::newRow("empty, named") << "a.VCF" << QByteArray() << "vcf";
  QTest::newRow("empty, unnamed") << "a" << QByteArray("\n") << "pwbook";
}

void FormatsTest::tellsByContent() {
  QFETCH(QString, name);
  QFETCH(QByteArray, bytes);
  QTEST(openBookFile(_folder.put(name, bytes))->format().endings.first(), "ending");
}

void FormatsTest::saysWhatToDo_data() {
  QTest::addColumn<QByteArray>("bytes");
  QTest::addColumn<QString>("says");
  QTest::newRow("old workbook") << QByteArray("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1\0\0", 10)
                                << "Save it as CSV";
  QTest::newRow("picture") << QByteArray("\x89PNG\r\n\x1A\n\0\0", 10) << "The program opens: ";
}

void FormatsTest::saysWhatToDo() {
  QFETCH(QByteArray, bytes);
  QFETCH(QString, says);
  const QString refusal = TestFolder::refusal(_folder.put("a.bin", bytes));
  QVERIFY2(refusal.contains(says), qUtf8Printable(refusal));
}

// The desktop offers the program for what it opens, and for nothing else.
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
