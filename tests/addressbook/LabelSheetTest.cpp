// Labels on paper: the PDF is read back with pdftotext and measured.

#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>

#include "apps/addressbook/sheet/SheetJob.h"

namespace postwright::addressbook {

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kTolerance = 0.01;  // inches

struct Word {
  int page;
  QString text;
  QRectF box;  // inches
};

// What pdftotext finds on the pages of a PDF.
QList<Word> wordsOf(const QString& pdf, QSizeF* paper) {
  QProcess process;
  process.start("pdftotext", {"-bbox", pdf, "-"});
  process.waitForFinished();
  QXmlStreamReader xml(process.readAllStandardOutput());
  QList<Word> words;
  int page = -1;
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) {
      continue;
    }
    const auto inches = [&xml](QLatin1String name) {
      return xml.attributes().value(name).toDouble() / kPointsPerInch;
    };
    if (xml.name() == u"page") {
      ++page;
      *paper = {inches(QLatin1String("width")), inches(QLatin1String("height"))};
    } else if (xml.name() == u"word") {
      const QRectF box(QPointF(inches(QLatin1String("xMin")), inches(QLatin1String("yMin"))),
                       QPointF(inches(QLatin1String("xMax")), inches(QLatin1String("yMax"))));
      words.append({page, xml.readElementText(), box});
    }
  }
  // Row by row: pdftotext may take two columns one after the other.
  std::sort(words.begin(), words.end(), [](const Word& a, const Word& b) {
    const auto rank = [](const Word& word) {
      return std::tuple(word.page, std::lround(word.box.y() / kTolerance), word.box.x());
    };
    return rank(a) < rank(b);
  });
  return words;
}

bool isNear(double a, double b) {
  return std::abs(a - b) <= kTolerance;
}

}  // namespace

class LabelSheetTest : public QObject {
  Q_OBJECT

 private slots:
  void liesWhereTheLabelsAre_data();
  void liesWhereTheLabelsAre();
  void fitsEveryLine_data();
  void fitsEveryLine();
  void endsWhereAsked();

 private:
  QTemporaryDir _folder;
};

// Measures as printed on the boxes: labels across and down, height, width, and the corners of the
// first and the last label on the paper.
void LabelSheetTest::liesWhereTheLabelsAre_data() {
  QTest::addColumn<int>("sheet");
  QTest::addColumn<int>("labels");
  QTest::addColumn<QPointF>("first");
  QTest::addColumn<QPointF>("last");
  QTest::newRow("1 x 2-5/8") << 0 << 30 << QPointF(0.1875, 0.5) << QPointF(5.6875, 9.5);
  QTest::newRow("1 x 4") << 1 << 20 << QPointF(0.15625, 0.5) << QPointF(4.34375, 9.5);
  QTest::newRow("2 x 4") << 2 << 10 << QPointF(0.15625, 0.5) << QPointF(4.34375, 8.5);
}

void LabelSheetTest::liesWhereTheLabelsAre() {
  QFETCH(int, sheet);
  QFETCH(int, labels);
  QFETCH(QPointF, first);
  QFETCH(QPointF, last);
  constexpr int kUsedUp = 3;
  SheetJob job{LabelSheet::all()[sheet], QStringList(labels, "Xyz")};
  job.start = kUsedUp;
  const QString pdf = _folder.filePath("sheet.pdf");
  QVERIFY(job.writePdf(pdf));
  QSizeF paper;
  const QList<Word> words = wordsOf(pdf, &paper);
  QVERIFY(isNear(paper.width(), 8.5) && isNear(paper.height(), 11));
  QCOMPARE(words.size(), labels);
  // What is drawn on a label lies the same on each: the last one of the first page tells the first.
  const QPointF inside = words[labels - kUsedUp - 1].box.topLeft() - last;
  QVERIFY(isNear(inside.x(), 0.125));
  for (int word = 0; word < labels; ++word) {
    const int place = (word + kUsedUp) % labels;
    QCOMPARE(words[word].page, (word + kUsedUp) / labels);
    const QPointF corner = words[word].box.topLeft() - inside;
    const QRectF area = LabelSheet::all()[sheet].place(place);
    QVERIFY(isNear(corner.x(), area.x()) && isNear(corner.y(), area.y()));
    QVERIFY(area.contains(words[word].box));
    // Half way between top and bottom, so the row is not off by a constant either.
    QVERIFY(std::abs(words[word].box.center().y() - area.center().y()) <= 0.03);
    if (place == 0) {
      QVERIFY(isNear(corner.x(), first.x()) && isNear(corner.y(), first.y()));
    }
  }
}

void LabelSheetTest::fitsEveryLine_data() {
  QTest::addColumn<QString>("label");
  QTest::newRow("usual") << "Jane Doe\n12 Main St\nAustin, TX 78701";
  QTest::newRow("many lines") << QString("Line\n").repeated(25) + "Line";
  QTest::newRow("one long line") << "Jane\n" + QString("W").repeated(200) + "\nAustin";
  QTest::newRow("all long") << QString(QString("Wide ").repeated(20) + "\n").repeated(9) + "end";
  QTest::newRow("beyond all bounds") << QString(QString("x").repeated(5000) + "\n").repeated(5000);
}

void LabelSheetTest::fitsEveryLine() {
  QFETCH(QString, label);
  for (const LabelSheet& sheet : LabelSheet::all()) {
    const QString pdf = _folder.filePath("label.pdf");
    QVERIFY((SheetJob{sheet, {label}}.writePdf(pdf)));
    QSizeF paper;
    const QList<Word> words = wordsOf(pdf, &paper);
    QVERIFY(!words.isEmpty());
    for (const Word& word : words) {
      QVERIFY2(sheet.place(0).contains(word.box), qUtf8Printable(word.text));
    }
  }
  const QList<FittedLine> lines = fitLabel(label, {2.625, 1.0}, {});
  if (label.startsWith("Jane\nW")) {
    QVERIFY(lines[1].points < lines[0].points);  // the others stay readable
    QVERIFY(lines[0].points > 8);
  }
}

void LabelSheetTest::endsWhereAsked() {
  const QString pdf = _folder.filePath("ended.pdf");
  const SheetJob job{LabelSheet::all().first(), QStringList(100, "x")};
  QCOMPARE(job.pages(), 4);
  QVERIFY(!job.writePdf(pdf, [](int pages) { return pages < 2; }));
  QVERIFY(!QFile::exists(pdf));
}

}  // namespace postwright::addressbook

QTEST_MAIN(postwright::addressbook::LabelSheetTest)
#include "LabelSheetTest.moc"
