// Labels on paper: the PDF is read back with pdftotext, or drawn with pdftoppm, and measured.

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>

#include "apps/addressbook/sheet/Presort.h"
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

// The barcode in the area `area` of a page, read from the pixels as by a scanner.
struct Bars {
  QString states;
  QRectF box;            // inches
  bool isClear = false;  // nothing else is printed within the zones that DMM 202.5 keeps free
};

Bars readBars(const QString& pdf, const QRectF& area) {
  constexpr double kDots = 600;
  const auto dots = [](double inches) { return QString::number(std::lround(inches * kDots)); };
  QProcess::execute("pdftoppm", {"-r", dots(1), "-gray", "-singlefile", "-x", dots(area.x()), "-y",
                                 dots(area.y()), "-W", dots(area.width()), "-H",
                                 dots(area.height()), pdf, pdf + ".page"});
  const QImage page(pdf + ".page.pgm");
  const auto isDark = [&page](int x, int y) { return qGray(page.pixel(x, y)) < 128; };
  const auto isEmpty = [&](int left, int top, int right, int bottom) {
    for (int y = std::max(0, top); y < std::min(bottom, page.height()); ++y) {
      for (int x = std::max(0, left); x < std::min(right, page.width()); ++x) {
        if (isDark(x, y)) {
          return false;
        }
      }
    }
    return true;
  };
  // The row that crosses 65 bars goes through the trackers.
  Bars bars;
  for (int y = 0; y < page.height() && bars.states.isEmpty(); ++y) {
    QList<QPair<int, int>> strokes;
    for (int x = 1; x < page.width(); ++x) {
      if (isDark(x, y) && !isDark(x - 1, y)) {
        strokes.append({x, x});
      } else if (isDark(x, y) && !strokes.isEmpty()) {
        strokes.last().second = x;
      }
    }
    if (strokes.size() != kBars) {
      continue;
    }
    QList<QPair<int, int>> ends;
    for (const auto& [left, right] : strokes) {
      int top = y;
      int bottom = y;
      while (top > 0 && isDark((left + right) / 2, top - 1)) {
        --top;
      }
      while (bottom + 1 < page.height() && isDark((left + right) / 2, bottom + 1)) {
        ++bottom;
      }
      ends.append({top, bottom});
    }
    const int top = std::min_element(ends.begin(), ends.end())->first;
    const int bottom = std::max_element(ends.begin(), ends.end(), [](auto a, auto b) {
                         return a.second < b.second;
                       })->second;
    for (const auto& [highest, lowest] : ends) {
      const bool ascends = highest < top + 0.02 * kDots;
      const bool descends = lowest > bottom - 0.02 * kDots;
      bars.states += QLatin1Char(ascends ? (descends ? 'F' : 'A') : (descends ? 'D' : 'T'));
    }
    const int left = strokes.first().first;
    const int right = strokes.last().second;
    bars.box =
        QRectF(left / kDots, top / kDots, (right + 1 - left) / kDots, (bottom + 1 - top) / kDots);
    const int beside = static_cast<int>(kClearBeside * kDots) - 1;
    const int above = static_cast<int>(kClearAbove * kDots) - 1;
    bars.isClear = left >= beside && right + beside < page.width() && top >= above &&
                   isEmpty(left - beside, top, left, bottom) &&
                   isEmpty(right + 1, top, right + beside, bottom) &&
                   isEmpty(left, top - above, right, top) &&
                   isEmpty(left, bottom + 1, right, bottom + above);
  }
  return bars;
}

}  // namespace

class LabelSheetTest : public QObject {
  Q_OBJECT

 private slots:
  void knowsSheetsByTheirNumbers();
  void refusesWhatIsNoSheet_data();
  void refusesWhatIsNoSheet();
  void liesWhereTheLabelsAre_data();
  void liesWhereTheLabelsAre();
  void breaksAndShrinks_data();
  void breaksAndShrinks();
  void keepsEveryWordInside();
  void setsSenderAndAddressApart_data();
  void setsSenderAndAddressApart();
  void encodesAsPublished_data();
  void encodesAsPublished();
  void printsBarsThatReadBack_data();
  void printsBarsThatReadBack();
  void takesMailersAsTheyAre_data();
  void takesMailersAsTheyAre();
  void countsByPrefix();
  void endsWhereAsked();

 private:
  QTemporaryDir _folder;
};

void LabelSheetTest::knowsSheetsByTheirNumbers() {
  QStringList numbers;
  int labels = 0;
  for (const LabelSheet& sheet : LabelSheet::all()) {
    QVERIFY2(sheet.problem().isEmpty(), qUtf8Printable(sheet.name + ": " + sheet.problem()));
    labels += sheet.isEnvelope() ? 0 : 1;
    numbers += QStringList(sheet.name) + sheet.otherNumbers;
  }
  QVERIFY(labels >= 40);
  QCOMPARE(numbers.removeDuplicates(), 0);
  // Sheets named in the settings of an earlier version.
  QCOMPARE(LabelSheet::named("letter-20").name, "5161");
  QCOMPARE(LabelSheet::named("gone").name, "5160");
}

void LabelSheetTest::refusesWhatIsNoSheet_data() {
  QTest::addColumn<QRectF>("first");  // the label in the corner
  QTest::addColumn<QSizeF>("pitch");
  QTest::addColumn<QSize>("count");
  QTest::addColumn<QString>("problem");
  const QRectF label(0.5, 0.5, 3, 1);
  QTest::newRow("good") << label << QSizeF(3.5, 1) << QSize(2, 10) << "";
  QTest::newRow("overlap across") << label << QSizeF(2.5, 1) << QSize(2, 10) << "overlap";
  QTest::newRow("overlap down") << label << QSizeF(3.5, 0.9) << QSize(2, 10) << "overlap";
  QTest::newRow("one column needs no step") << label << QSizeF(0, 1) << QSize(1, 10) << "";
  QTest::newRow("beyond the right edge") << label << QSizeF(5.1, 1) << QSize(2, 10) << "not fit";
  QTest::newRow("beyond the lower edge") << label << QSizeF(3.5, 1) << QSize(2, 11) << "not fit";
  QTest::newRow("left of the paper")
      << QRectF(-0.1, 0.5, 3, 1) << QSizeF(3.5, 1) << QSize(2, 10) << "not fit";
  QTest::newRow("no label") << QRectF(0, 0, 0.1, 1) << QSizeF(1, 1) << QSize(2, 10) << "at least";
  QTest::newRow("none") << label << QSizeF(3.5, 1) << QSize(0, 10) << "from 1 to";
}

void LabelSheetTest::refusesWhatIsNoSheet() {
  QFETCH(QRectF, first);
  QFETCH(QSizeF, pitch);
  QFETCH(QSize, count);
  QFETCH(QString, problem);
  const LabelSheet sheet{"mine",         {},           Paper::Letter,   count.width(),
                         count.height(), first.size(), first.topLeft(), pitch};
  QCOMPARE(sheet.problem().isEmpty(), problem.isEmpty());
  QVERIFY2(sheet.problem().contains(problem), qUtf8Printable(sheet.problem()));
}

// Measures as printed on the boxes: the corners of the first and the last label on the paper.
void LabelSheetTest::liesWhereTheLabelsAre_data() {
  QTest::addColumn<QSizeF>("paper");
  QTest::addColumn<int>("labels");
  QTest::addColumn<QPointF>("first");
  QTest::addColumn<QPointF>("last");
  const QSizeF letter(8.5, 11);
  const QSizeF a4(8.268, 11.693);
  QTest::newRow("8160") << letter << 30 << QPointF(0.1875, 0.5) << QPointF(5.6875, 9.5);
  QTest::newRow("5161") << letter << 20 << QPointF(0.15625, 0.5) << QPointF(4.34375, 9.5);
  QTest::newRow("5163") << letter << 10 << QPointF(0.15625, 0.5) << QPointF(4.34375, 8.5);
  QTest::newRow("5162") << letter << 14 << QPointF(0.15625, 0.8333) << QPointF(4.34375, 8.8333);
  QTest::newRow("L7160") << a4 << 21 << QPointF(0.284, 0.596) << QPointF(5.484, 9.596);
  QTest::newRow("L7163") << a4 << 14 << QPointF(0.183, 0.596) << QPointF(4.183, 9.596);
}

void LabelSheetTest::liesWhereTheLabelsAre() {
  QFETCH(QSizeF, paper);
  QFETCH(int, labels);
  QFETCH(QPointF, first);
  QFETCH(QPointF, last);
  constexpr int kUsedUp = 3;
  const LabelSheet sheet = LabelSheet::named(QTest::currentDataTag());
  SheetJob job{sheet, QStringList(labels / 2, "Xyz")};
  job.start = kUsedUp;
  job.copies = 2;
  const QString pdf = _folder.filePath("sheet.pdf");
  QVERIFY(job.writePdf(pdf));
  QSizeF size;
  const QList<Word> words = wordsOf(pdf, &size);
  QVERIFY(isNear(size.width(), paper.width()) && isNear(size.height(), paper.height()));
  QCOMPARE(words.size(), labels / 2 * 2);
  // Everything is in the same place on each label, so the last one of the first page stands for the
  // first.
  const QPointF inside = words[labels - kUsedUp - 1].box.topLeft() - last;
  QVERIFY(isNear(inside.x(), 0.125));
  for (int word = 0; word < words.size(); ++word) {
    const int place = (word + kUsedUp) % labels;
    QCOMPARE(words[word].page, (word + kUsedUp) / labels);
    const QPointF corner = words[word].box.topLeft() - inside;
    const QRectF area = sheet.place(place);
    QVERIFY(isNear(corner.x(), area.x()) && isNear(corner.y(), area.y()));
    QVERIFY(area.contains(words[word].box));
    // Half way between top and bottom, so that a constant offset shows too.
    QVERIFY(std::abs(words[word].box.center().y() - area.center().y()) <= 0.03);
    if (place == 0) {
      QVERIFY(isNear(corner.x(), first.x()) && isNear(corner.y(), first.y()));
    }
  }
}

void LabelSheetTest::breaksAndShrinks_data() {
  QTest::addColumn<QString>("label");
  QTest::addColumn<int>("lines");
  QTest::addColumn<double>("least");  // points
  QTest::addColumn<double>("most");
  QTest::addColumn<bool>("fits");
  const QString rest = "\n12 Main St\nAustin, TX 78701";
  QTest::newRow("usual") << "Jane Doe" + rest << 3 << 11.0 << 11.0 << true;
  QTest::newRow("breaks first") << "The Ladies' Benevolent Society of the Parish" + rest << 4
                                << 10.0 << 11.0 << true;
  QTest::newRow("a place never breaks")
      << "Jane\n1 A St\nSaint Bartholomew Lakes, TX 78701" << 3 << 7.0 << 10.75 << true;
  QTest::newRow("many lines") << "A\nB\nC\nD\nE\nF\nReno, NV 89501" << 7 << 7.0 << 9.0 << true;
  QTest::newRow("too many lines") << QString("Line\n").repeated(25) + "Line" << -1 << 7.0 << 7.0
                                  << false;
  QTest::newRow("a word beyond the label")
      << "Jane\n" + QString(200, 'W') + "\nAustin" << -1 << 7.0 << 7.0 << false;
  QTest::newRow("beyond all bounds")
      << QString(QString(5000, 'x') + "\n").repeated(5000) << -1 << 7.0 << 7.0 << false;
}

void LabelSheetTest::breaksAndShrinks() {
  QFETCH(QString, label);
  QFETCH(int, lines);
  QFETCH(double, least);
  QFETCH(double, most);
  QFETCH(bool, fits);
  const SheetJob job{LabelSheet::named("5160"), {label}};
  const FittedLabel fitted = job.face(0).address;
  QCOMPARE(fitted.fits, fits);
  QCOMPARE(job.misfits()->isEmpty(), fits);
  QVERIFY2(fitted.points >= least && fitted.points <= most,
           qPrintable(QString::number(fitted.points)));
  QVERIFY(lines < 0 || fitted.lines.size() == lines);
}

// If a label fits, no letter is outside it.
void LabelSheetTest::keepsEveryWordInside() {
  const QString label =
      "The Ladies' Benevolent Society of the Parish of Our Lady\n"
      "12345 North Old Farm-to-Market Road 1960 Apt 2001\nAustin, TX 78701-1234";
  for (const char* const number :
       {"5160", "5162", "5366", "6570", "L7654", "L7160", "3651", "No. 6-3/4"}) {
    const LabelSheet sheet = LabelSheet::named(number);
    const SheetJob job{sheet, {label}};
    QVERIFY2(job.misfits()->isEmpty(), number);
    const QString pdf = _folder.filePath("label.pdf");
    QVERIFY(job.writePdf(pdf));
    QSizeF paper;
    const QList<Word> words = wordsOf(pdf, &paper);
    QVERIFY(words.size() >= 19);
    for (const Word& word : words) {
      QVERIFY2(sheet.place(0).contains(word.box), qUtf8Printable(sheet.name + ": " + word.text));
    }
  }
}

// On an envelope the address is where the sorting machines look for it, and the sender is outside
// that area; a label may have no room for a sender.
void LabelSheetTest::setsSenderAndAddressApart_data() {
  QTest::addColumn<QRectF>("sender");
  QTest::addColumn<QRectF>("address");
  QTest::newRow("No. 10") << QRectF(0, 0, 5, 1.375) << QRectF(3.5, 1.375, 5.5, 2.125);
  QTest::newRow("No. 6-3/4") << QRectF(0, 0, 3.5, 0.875) << QRectF(2.5, 0.875, 3.5, 2.125);
  QTest::newRow("5164") << QRectF(0.15, 0.5, 3, 1.3) << QRectF(0.9, 1.8, 3.25, 2.03);
  QTest::newRow("5160") << QRectF() << QRectF(0.1875, 0.5, 2.625, 1);
}

void LabelSheetTest::setsSenderAndAddressApart() {
  QFETCH(QRectF, sender);
  QFETCH(QRectF, address);
  SheetJob job{LabelSheet::named(QTest::currentDataTag()), {"Yours\n12 Main St\nReno, NV 89501"}};
  QImage picture(300, 300, QImage::Format_RGB32);
  picture.fill(Qt::red);
  job.sender = {"Mine Truly\n9 Elm St\nAustin, TX 78701", picture};
  QVERIFY(job.misfits()->isEmpty());
  const QString pdf = _folder.filePath("sender.pdf");
  QVERIFY(job.writePdf(pdf));
  QSizeF paper;
  const QList<Word> words = wordsOf(pdf, &paper);
  QCOMPARE(words.size(), sender.isNull() ? 7 : 15);
  for (const Word& word : words) {
    QVERIFY2((sender.contains(word.box) || address.contains(word.box)), qUtf8Printable(word.text));
  }
  QImage drawn(850, 1100, QImage::Format_RGB32);
  drawn.fill(Qt::white);
  QPainter painter(&drawn);
  painter.scale(100, 100);
  job.paintPage(painter, 0);
  int red = 0;
  for (int y = 0; y < drawn.height(); ++y) {
    for (int x = 0; x < drawn.width(); ++x) {
      const bool isRed = drawn.pixelColor(x, y) == Qt::red;
      red += isRed ? 1 : 0;
      QVERIFY(!isRed || sender.contains(QPointF(x, y) / 100));
    }
  }
  QCOMPARE(red > 1000, !sender.isNull());
}

// The examples that USPS-B-3200 itself gives.
void LabelSheetTest::encodesAsPublished_data() {
  QTest::addColumn<QString>("routing");
  QTest::addColumn<QString>("states");
  QTest::newRow("none") << ""
                        << "ATTFATTDTTADTAATTDTDTATTDAFDDFADFDFTFFFFFTATFAAAATDFFTDAADFTFDTDT";
  QTest::newRow("ZIP") << "01234"
                       << "DTTAFADDTTFTDTFTFDTDDADADAFADFATDDFTAAAFDTTADFAAATDFDTDFADDDTDFFT";
  QTest::newRow("ZIP+4") << "012345678"
                         << "ADFTTAFDTTTTFATTADTAAATFTFTATDAAAFDDADATATDTDTTDFDTDATADADTDFFTFA";
  QTest::newRow("delivery point")
      << "01234567891"
      << "AADTFFDFTDADTAADAATFDTDDAAADDTDTTDAFADADDDTFFFDDTTTADFAAADFTDAADA";
  QTest::newRow("no digits") << "0123456x8"
                             << "";
}

void LabelSheetTest::encodesAsPublished() {
  QFETCH(QString, routing);
  QFETCH(QString, states);
  QCOMPARE(barStates("01234567094987654321", routing), states);
}

void LabelSheetTest::printsBarsThatReadBack_data() {
  QTest::addColumn<QString>("label");
  QTest::addColumn<bool>("hasBars");
  const QString name = "Jane Doe\n12 Main St\n";
  QTest::newRow("5161") << name + "Austin, TX 78701-1234" << true;
  QTest::newRow("5163") << name + "RENO NV 895010042" << true;
  QTest::newRow("No. 10") << name + "Boise, ID 83702-9999" << true;
  QTest::newRow("L7163") << name + "Boise, ID 83702-9999" << true;
  QTest::newRow("5162") << name + "Austin, TX 78701" << false;
  QTest::newRow("5160") << name + "Austin, TX 78701-1234" << false;  // too narrow
}

// The second label if the sheet has one, so that the serial number has been counted up.
void LabelSheetTest::printsBarsThatReadBack() {
  QFETCH(QString, label);
  QFETCH(bool, hasBars);
  SheetJob job{LabelSheet::named(QTest::currentDataTag()), {label, label}};
  job.mail = MailCode{"040", "123456", 999'999'998};
  const bool isPointKnown = QByteArray(QTest::currentDataTag()) != "5161";
  job.deliveryPoints =
      isPointKnown ? QHash<QString, QString>{{label, "07"}} : QHash<QString, QString>();
  const QString pdf = _folder.filePath("bars.pdf");
  QVERIFY(job.writePdf(pdf));
  const int piece = job.sheet.size() > 1 ? 1 : 0;
  const Bars bars = readBars(pdf, job.sheet.place(piece));
  QCOMPARE(bars.states, hasBars ? barStates(job.mail->tracking(piece),
                                            routingCode(label, job.deliveryPoints.value(label)))
                                : "");
  QCOMPARE(routingCode(label, "07").endsWith("07"), !routingCode(label).isEmpty());
  if (hasBars) {
    QVERIFY(bars.states.size() == 65);
    const double pitch = (bars.box.width() - 0.02) / 64;
    QVERIFY(pitch >= 1.0 / 24 && pitch <= 1.0 / 20);
    QVERIFY(bars.box.height() >= 0.125 && bars.box.height() <= 0.165);
    QVERIFY(bars.isClear);
  }
}

void LabelSheetTest::takesMailersAsTheyAre_data() {
  QTest::addColumn<MailCode>("code");
  QTest::addColumn<QString>("tracking");  // of the third piece; empty: refused
  QTest::newRow("six") << MailCode{"040", "123456", 7} << "00040123456000000009";
  QTest::newRow("nine") << MailCode{"270", "912345678", 999'999} << "00270912345678000001";
  QTest::newRow("nine, like six") << MailCode{"270", "812345678", 1} << "";
  QTest::newRow("six, like nine") << MailCode{"270", "912345", 1} << "";
  QTest::newRow("seven") << MailCode{"270", "1234567", 1} << "";
  QTest::newRow("no service") << MailCode{"27", "123456", 1} << "";
  QTest::newRow("not given") << MailCode{} << "";
}

void LabelSheetTest::takesMailersAsTheyAre() {
  QFETCH(MailCode, code);
  QFETCH(QString, tracking);
  QCOMPARE(code.problem().isEmpty(), !tracking.isEmpty());
  if (!tracking.isEmpty()) {
    QCOMPARE(code.tracking(2), tracking);
  }
}

void LabelSheetTest::countsByPrefix() {
  const QStringList labels = {"A\nReno, NV 89501",        "B\nnowhere",
                              "C\nAustin, TX 78701-0002", "D\nAustin, TX 78701",
                              "E\nBoston MA 02110",       "F\nAustin, TX 78799"};
  QCOMPARE(Presort::order(labels), QList<int>({4, 3, 2, 5, 0, 1}));
  QCOMPARE(Presort::count(labels, 2),
           QList<Presort::Count>({{"021", 2}, {"787", 6}, {"895", 2}, {"", 2}}));
  QVERIFY(Presort::page(Presort::count(labels)).contains("<b>6</b>"));
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
