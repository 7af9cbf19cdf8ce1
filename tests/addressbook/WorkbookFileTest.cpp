// Workbooks: what cells show, and that an edit changes nothing else in the file.

#include <QSettings>
#include <QStandardPaths>
#include <QTest>

#include "apps/addressbook/book/ColumnedFile.h"
#include "apps/workbook/OdsWorkbook.h"
#include "apps/workbook/XlsxWorkbook.h"
#include "tests/addressbook/TestFolder.h"

namespace postwright::addressbook {

namespace {

using workbook::ZipParts;

const QByteArray kSheet = "xl/worksheets/sheet1.xml";
const QByteArray kContent = "content.xml";

// A file as spreadsheet programs write it: shared strings, styles, two sheets, a picture.
QByteArray xlsx(const QByteArray& sheet) {
  const QByteArray relations =
      "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
  return ZipParts::make({
      {"[Content_Types].xml", "<Types/>"},
      {"_rels/.rels", "<Relationships><Relationship Id=\"r\" Type=\"" + relations +
                          "officeDocument\" Target=\"/xl/workbook.xml\"/></Relationships>"},
      {"xl/workbook.xml",
       "<x:workbook xmlns:x=\"m\" xmlns:q=\"r\"><x:sheets><x:sheet name=\"List\" sheetId=\"1\" "
       "q:id=\"a\"/><x:sheet name=\"Chart\" sheetId=\"2\" q:id=\"c\"/><x:sheet name=\"Other\" "
       "sheetId=\"3\" q:id=\"b\"/></x:sheets></x:workbook>"},
      {"xl/_rels/workbook.xml.rels",
       "<Relationships><Relationship Id=\"a\" Type=\"" + relations +
           "worksheet\" Target=\"worksheets/sheet1.xml\"/><Relationship Id=\"b\" Type=\"" +
           relations +
           "worksheet\" Target=\"worksheets/sheet2.xml\"/><Relationship Id=\"c\" Type=\"" +
           relations + "chartsheet\" Target=\"c.xml\"/><Relationship Id=\"s\" Type=\"" + relations +
           "sharedStrings\" Target=\"sharedStrings.xml\"/><Relationship Id=\"t\" Type=\"" +
           relations + "styles\" Target=\"styles.xml\"/></Relationships>"},
      {"xl/sharedStrings.xml",
       "<sst><si><t>Name</t></si><si><t>Street</t></si><si><t>City</t></si><si><t>State</t></si>"
       "<si><t>Zip</t></si><si><t>Note</t></si><si><r><t>Zoe</t></r><r><rPr><b/></rPr><t "
       "xml:space=\"preserve\"> "
       "Li</t></r><rPh><t>x</t></rPh></si><si><t>A_x000D_&#10;b</t></si></sst>"},
      {"xl/styles.xml",
       "<styleSheet><numFmts><numFmt numFmtId=\"164\" formatCode=\"00000\"/><numFmt "
       "numFmtId=\"165\" "
       "formatCode=\"[&lt;=99999]00000;00000\\-0000\"/><numFmt numFmtId=\"166\" "
       "formatCode=\"[$-409]d\\-mmm;@\"/><numFmt numFmtId=\"167\" "
       "formatCode=\"&quot;d&quot;0.0%\"/>"
       "</numFmts><cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"164\"/><xf numFmtId=\"165\"/>"
       "<xf numFmtId=\"166\"/><xf numFmtId=\"167\"/><xf numFmtId=\"22\"/></cellXfs></styleSheet>"},
      {kSheet, "<worksheet><dimension ref=\"A1:F3\"/><sheetData>" + sheet +
                   "</sheetData><mergeCells/></worksheet>"},
      {"xl/worksheets/sheet2.xml",
       "<worksheet><sheetData><row><c t=\"inlineStr\"><is><t>Al Roe</t></is></c><c "
       "t=\"inlineStr\"><is><t>2 Oak St</t></is></c><c t=\"inlineStr\"><is><t>Reno, NV "
       "89501</t></is></c></row></sheetData></worksheet>"},
      {"xl/media/image1.png", QByteArray(3000, '\x7F'), true},
  });
}

const QByteArray kHead =
    "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"B1\" t=\"s\"><v>1</v></c><c r=\"C1\" "
    "t=\"s\"><v>2</v></c><c r=\"D1\" t=\"s\"><v>3</v></c><c r=\"E1\" t=\"s\"><v>4</v></c><c "
    "r=\"F1\" t=\"s\"><v>5</v></c></row>";

QByteArray text(const char* cell, const char* value) {
  return QByteArray("<c r=\"") + cell + "\" s=\"1\" t=\"inlineStr\"><is><t>" + value +
         "</t></is></c>";
}

QByteArray entry(const QByteArray& zip) {
  return "<row r=\"3\" ht=\"20\"><c r=\"A3\" t=\"s\"><v>6</v></c>" + text("B3", "1 Elm St") +
         text("C3", "Reno") + text("D3", "NV") + zip + "<c r=\"F3\" s=\"3\"><v>45000</v></c></row>";
}

QByteArray ods(const QByteArray& rows) {
  return ZipParts::make(
      {{"mimetype", "application/vnd.oasis.opendocument.spreadsheet", true},
       {"Pictures/1.png", QByteArray(3000, '\x7F')},
       {kContent,
        "<office:document-content xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\">"
        "<office:body><office:spreadsheet><table:table table:name=\"List\">"
        "<table:table-column/><table:table-header-rows><table:table-row>"
        "<table:table-cell><text:p>Name</text:p></table:table-cell>"
        "<table:table-cell><text:p>Street</text:p></table:table-cell>"
        "<table:table-cell><text:p>City</text:p></table:table-cell>"
        "<table:table-cell><text:p>State</text:p></table:table-cell>"
        "<table:table-cell><text:p>Zip</text:p></table:table-cell></table:table-row>"
        "</table:table-header-rows>" +
            rows +
            "<table:table-row table:number-rows-repeated=\"1048000\"><table:table-cell "
            "table:number-columns-repeated=\"16384\"/></table:table-row><table:named-expressions/>"
            "</table:table></office:spreadsheet></office:body></office:document-content>"}});
}

QByteArray odsCell(const QByteArray& attributes, const QByteArray& text) {
  return "<table:table-cell" + attributes + "><text:p>" + text + "</text:p></table:table-cell>";
}

QByteArray odsEntry(const QByteArray& zip, const QByteArray& attributes = {}) {
  return "<table:table-row" + attributes + ">" + odsCell({}, "Zoe Li") +
         odsCell(
             " table:style-name=\"c\" office:value-type=\"string\" calcext:value-type=\"string\"",
             "1 Elm<text:s/> St") +
         odsCell({}, "Reno") + odsCell({}, "NV") + zip + "</table:table-row>";
}

// The packed bytes of a member.
QByteArray packed(const QByteArray& archive, const QByteArray& name) {
  zip_source_t* const source = zip_source_buffer_create(
      archive.constData(), static_cast<zip_uint64_t>(archive.size()), 0, nullptr);
  zip_t* const opened = zip_open_from_source(source, ZIP_RDONLY, nullptr);
  zip_file_t* const file = zip_fopen(opened, name.constData(), ZIP_FL_COMPRESSED);
  QByteArray bytes(100000, '\0');
  bytes.resize(zip_fread(file, bytes.data(), static_cast<zip_uint64_t>(bytes.size())));
  zip_fclose(file);
  zip_discard(opened);
  return bytes;
}

}  // namespace

class WorkbookFileTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase();
  void shows_data();
  void shows();
  void changesOnlyItsCells_data();
  void changesOnlyItsCells();
  void neverWritesOver_data();
  void neverWritesOver();
  void removesAndAdds_data();
  void removesAndAdds();
  void readsTheChosenSheet();
  void refuses_data();
  void refuses();

 private:
  TestFolder _folder;
};

void WorkbookFileTest::initTestCase() {
  QCoreApplication::setOrganizationName("PostwrightTest");
  QStandardPaths::setTestModeEnabled(true);
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _folder.path({}));
}

void WorkbookFileTest::shows_data() {
  QTest::addColumn<QByteArray>("file");
  QTest::addColumn<QString>("zip");
  const auto ofXlsx = [](const char* name, const QByteArray& cell, const char* zip) {
    QTest::newRow(name) << xlsx(kHead + entry(cell)) << zip;
  };
  ofXlsx("general number", "<c r=\"E3\"><v>89501</v></c>", "89501");
  ofXlsx("lost its zero", "<c r=\"E3\"><v>2134</v></c>", "02134");
  QTest::newRow("lost its zero, no names above")
      << xlsx(entry("<c r=\"E3\"><v>2134</v></c>")) << "02134";
  ofXlsx("lost both", "<c r=\"E3\"><v>501</v></c>", "00501");
  ofXlsx("nine digits without one", "<c r=\"E3\"><v>21341234</v></c>", "02134-1234");
  ofXlsx("00000", "<c r=\"E3\" s=\"1\"><v>2134</v></c>", "02134");
  ofXlsx("ZIP or ZIP+4", "<c r=\"E3\" s=\"2\"><v>21341234</v></c>", "02134-1234");
  ofXlsx("as a fraction", "<c r=\"E3\"><v>8.9501E4</v></c>", "89501");
  ofXlsx("text", text("E3", "89501-1234"), "89501-1234");
  ofXlsx("text that is short", text("E3", "2134"), "2134");
  ofXlsx("formula", "<c r=\"E3\" t=\"str\"><f>A1</f><v>89501</v></c>", "89501");
  ofXlsx("percent", "<c r=\"E3\" s=\"4\"><v>0.5</v></c>", "0.5");
  ofXlsx("day", "<c r=\"E3\" s=\"3\"><v>45000</v></c>", "2023-03-15");
  ofXlsx("day and time", "<c r=\"E3\" s=\"5\"><v>45000.5</v></c>", "2023-03-15 12:00:00");
  ofXlsx("true", "<c r=\"E3\" t=\"b\"><v>1</v></c>", "TRUE");
  ofXlsx("no place said", "<c><v>89501</v></c>", "89501");
  const auto ofOds = [](const char* name, const QByteArray& cell, const char* zip) {
    QTest::newRow(name) << ods(odsEntry(cell)) << zip;
  };
  ofOds("ODS number", odsCell(" office:value-type=\"float\" office:value=\"2134\"", "2,134"),
        "02134");
  ofOds("ODS 00000", odsCell(" office:value-type=\"float\" office:value=\"2134\"", "02134"),
        "02134");
  ofOds("ODS text, spans, note",
        odsCell({},
                "8<text:span>95</text:span>01</text:p><office:annotation><text:p>x</text:p>"
                "</office:annotation><text:p>"),
        "89501");
}

void WorkbookFileTest::shows() {
  QFETCH(QByteArray, file);
  QFETCH(QString, zip);
  const std::unique_ptr<BookFile> book = openBookFile(_folder.put("book.bin", file));
  const QString street = book->format().endings.first() == u"ods" ? "1 Elm  St" : "1 Elm St";
  QCOMPARE(book->entries().size(), 1);
  QCOMPARE(book->entries().first().label, "Zoe Li\n" + street + "\nReno, NV " + zip);
}

void WorkbookFileTest::changesOnlyItsCells_data() {
  QTest::addColumn<QByteArray>("file");
  QTest::addColumn<QByteArray>("part");
  QTest::addColumn<QString>("label");
  QTest::addColumn<QByteArray>("from");
  QTest::addColumn<QByteArray>("to");
  const QByteArray number = "<c r=\"E3\" s=\"1\"><v>2134</v></c>";
  QTest::newRow("street") << xlsx(kHead + entry(number)) << kSheet
                          << "Zoe Li\n1 ELM ST & CO\nReno, NV 02134" << text("B3", "1 Elm St")
                          << QByteArray(
                                 "<c r=\"B3\" s=\"1\" t=\"inlineStr\"><is><t "
                                 "xml:space=\"preserve\">1 ELM ST &amp; CO</t></is></c>");
  QTest::newRow("number stays one")
      << xlsx(kHead + entry(number)) << kSheet << "Zoe Li\n1 Elm St\nReno, NV 02139" << number
      << QByteArray("<c r=\"E3\" s=\"1\"><v>2139</v></c>");
  QTest::newRow("number becomes text")
      << xlsx(kHead + entry(number)) << kSheet << "Zoe Li\n1 Elm St\nReno, NV 02134-1234" << number
      << QByteArray(
             "<c r=\"E3\" s=\"1\" t=\"inlineStr\"><is><t "
             "xml:space=\"preserve\">02134-1234</t></is></c>");
  QTest::newRow("no cell there yet")
      << xlsx(kHead + entry({})) << kSheet << "Zoe Li\n1 Elm St\nReno, NV 89501"
      << QByteArray("<c r=\"F3\"")
      << QByteArray(
             "<c r=\"E3\" t=\"inlineStr\"><is><t xml:space=\"preserve\">89501</t></is></c><c "
             "r=\"F3\"");
  QTest::newRow("prefixes")
      << xlsx(
             "<x:row><x:c t=\"s\"><x:v>0</x:v></x:c><x:c t=\"s\"><x:v>1</x:v></x:c></x:row>"
             "<x:row><x:c t=\"s\"><x:v>6</x:v></x:c></x:row>")
      << kSheet << "Zoe Li\n9 Oak St" << QByteArray("<x:v>6</x:v></x:c>")
      << QByteArray(
             "<x:v>6</x:v></x:c><x:c r=\"B2\" t=\"inlineStr\"><x:is><x:t xml:space=\"preserve\">9 "
             "Oak St</x:t></x:is></x:c>");
  const QByteArray zip = odsCell(" office:value-type=\"float\" office:value=\"89501\"", "89501");
  QTest::newRow("ODS street") << ods(odsEntry(zip)) << kContent
                              << "Zoe Li\n1 ELM   ST\nReno, NV 89501"
                              << QByteArray("1 Elm<text:s/> St")
                              << QByteArray("1 ELM<text:s text:c=\"3\"/>ST");
  QTest::newRow("ODS row of two that are the same")
      << ods(odsEntry(zip, " table:number-rows-repeated=\"2\"")) << kContent
      << "Zoe Li\n1 Elm  St\nReno, NV 89502" << odsEntry(zip, " table:number-rows-repeated=\"2\"")
      << odsEntry(odsCell(" office:value-type=\"string\"", "89502")) + odsEntry(zip);
}

void WorkbookFileTest::changesOnlyItsCells() {
  QFETCH(QByteArray, file);
  QFETCH(QByteArray, part);
  QFETCH(QString, label);
  QFETCH(QByteArray, from);
  QFETCH(QByteArray, to);
  const QString path = _folder.put("book.bin", file);
  const std::unique_ptr<BookFile> book = openBookFile(path);
  QList<Entry> entries = book->entries();
  const QString before = std::exchange(entries[0].label, label);
  book->write(path, entries);
  const QByteArray written = _folder.bytes("book.bin");
  QByteArray expected = ZipParts(file).read(part);
  QCOMPARE(expected.count(from), 1);
  QCOMPARE(ZipParts(written).read(part), expected.replace(from, to));
  QCOMPARE(openBookFile(path)->entries().first().label, label);
  for (const QByteArray name : {"xl/media/image1.png", "xl/styles.xml", "Pictures/1.png"}) {
    QCOMPARE(ZipParts(written).has(name), ZipParts(file).has(name));
    if (ZipParts(file).has(name)) {
      QCOMPARE(packed(written, name), packed(file, name));
    }
  }
  // Undone and saved, it is as it was.
  entries[0].label = before;
  book->write(path, entries);
  QCOMPARE(ZipParts(_folder.bytes("book.bin")).read(part), ZipParts(file).read(part));
}

void WorkbookFileTest::neverWritesOver_data() {
  QTest::addColumn<QByteArray>("file");
  QTest::newRow("formula") << xlsx(kHead + entry("<c r=\"E3\"><f>A1</f><v>89501</v></c>"));
  QTest::newRow("day") << xlsx(kHead + entry("<c r=\"E3\" s=\"3\"><v>45000</v></c>"));
  QTest::newRow("ODS formula") << ods(
      odsEntry(odsCell(" table:formula=\"of:=A1\" office:value-type=\"string\"", "89501")));
}

// The file as a whole is left alone, and the message says where to look.
void WorkbookFileTest::neverWritesOver() {
  QFETCH(QByteArray, file);
  const QString path = _folder.put("book.bin", file);
  const std::unique_ptr<BookFile> book = openBookFile(path);
  QList<Entry> entries = book->entries();
  entries[0].label = "Zoe Li\n1 Oak St\nReno, NV 89502";
  try {
    book->write(path, entries);
    QFAIL("written");
  } catch (const tables::FileError& error) {
    QVERIFY2(error.message().contains("Cell E"), qUtf8Printable(error.message()));
  }
  QCOMPARE(_folder.bytes("book.bin"), file);
}

void WorkbookFileTest::removesAndAdds_data() {
  QTest::addColumn<QByteArray>("file");
  QTest::addColumn<QByteArray>("holds");
  QTest::newRow("xlsx") << xlsx(kHead + entry("<c r=\"E3\"><f>A1</f><v>89501</v></c>"))
                        << QByteArray("<f>A1</f>");
  QTest::newRow("ods") << ods(odsEntry(odsCell(" table:formula=\"of:=A1\"", "89501")))
                       << QByteArray("of:=A1");
  QTest::newRow("new xlsx") << workbook::XlsxWorkbook::make() << QByteArray();
  QTest::newRow("new ods") << workbook::OdsWorkbook::make() << QByteArray();
}

// A removed row stays as an empty one, with what other cells may refer to.
void WorkbookFileTest::removesAndAdds() {
  QFETCH(QByteArray, file);
  QFETCH(QByteArray, holds);
  const QString path = _folder.put("book.bin", file);
  const std::unique_ptr<BookFile> book = openBookFile(path);
  const QList<Entry> added{{8, "Al Roe\n2 Oak St\nReno, NV 89501", {}},
                           {9, "Bo <Low>\n3 Oak St\nReno, NV 02134", {}}};
  book->write(path, added);
  const QList<Entry> read = openBookFile(path)->entries();
  QVERIFY(read.size() >= 2);
  for (int place = 0; place < 2; ++place) {
    QCOMPARE(read[read.size() - 2 + place].label, added[place].label);
  }
  const QByteArray part =
      openBookFile(path)->format().endings.first() == u"ods" ? kContent : kSheet;
  const QByteArray now = ZipParts(_folder.bytes("book.bin")).read(part);
  QVERIFY(now.contains(holds) && !now.contains("Elm"));
}

void WorkbookFileTest::readsTheChosenSheet() {
  const std::unique_ptr<BookFile> book =
      openBookFile(_folder.put("book.xlsx", xlsx(kHead + entry(text("E3", "89501")))));
  ColumnedFile& columns = *book->columns();
  QCOMPARE(columns.sheets(), (QStringList{"List", "Other"}));
  tables::TableChoice choice = columns.choice();
  choice.sheet = 1;
  columns.choose(columns.guess(choice));
  QCOMPARE(book->entries().first().label, "Al Roe\n2 Oak St\nReno, NV 89501");
  QVERIFY(!columns.choice().hasHeader);
}

void WorkbookFileTest::refuses_data() {
  QTest::addColumn<QByteArray>("file");
  QTest::addColumn<QString>("says");
  const auto sheet = [](const QByteArray& rows) { return xlsx(rows); };
  QTest::newRow("other archive") << ZipParts::make({{"a.txt", "x"}}) << "not a workbook";
  QTest::newRow("cut short") << xlsx(kHead).first(400) << "damaged";
  QTest::newRow("no XML") << sheet("<row><c></row>") << "not XML";
  QTest::newRow("string that is not there")
      << sheet("<row><c t=\"s\"><v>99</v></c></row>") << "does not fit";
  QTest::newRow("rows twice") << sheet("<row r=\"2\"/><row r=\"2\"/>") << "does not fit";
  QTest::newRow("million rows of one text")
      << ods("<table:table-row table:number-rows-repeated=\"1000000\"><table:table-cell "
             "table:number-columns-repeated=\"16000\"><text:p>x</text:p></table:table-cell>"
             "</table:table-row>")
      << "four million";
  QTest::newRow("deep") << sheet(QByteArray("<a>").repeated(200000)) << "not XML";
  QTest::newRow("deep groups") << ods(QByteArray("<table:table-row-group>").repeated(100000) +
                                      QByteArray("</table:table-row-group>").repeated(100000))
                               << "does not fit";
  QTest::newRow("too many tags") << sheet(QByteArray("<a/>").repeated(12'000'001)) << "too many";
}

void WorkbookFileTest::refuses() {
  QFETCH(QByteArray, file);
  QFETCH(QString, says);
  const QString refusal = TestFolder::refusal(_folder.put("a.xlsx", file));
  QVERIFY2(refusal.contains(says), qUtf8Printable(refusal));
}

}  // namespace postwright::addressbook

QTEST_GUILESS_MAIN(postwright::addressbook::WorkbookFileTest)
#include "WorkbookFileTest.moc"
