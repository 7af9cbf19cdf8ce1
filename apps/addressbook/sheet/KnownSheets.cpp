// The measures of label sheets, as their makers print them on the boxes.

#include "apps/addressbook/sheet/LabelSheet.h"

namespace postwright::addressbook {

namespace {

struct Row {
  const char* numbers;  // product numbers of the same measures
  int columns;
  int rows;
  double width;  // of a label
  double height;
  double left;  // corner of the first label
  double top;
  double across;  // from a label to its neighbours
  double down;
};

// Inches.
const Row kLetterSheets[] = {
    {"5160 8160 5260 5960 18160 8460 letter-30", 3, 10, 2.625, 1, 0.1875, 0.5, 2.75, 1},
    {"5161 8161 5261 18161 letter-20", 2, 10, 4, 1, 0.15625, 0.5, 4.1875, 1},
    {"5163 8163 5263 18163 8463 letter-10", 2, 5, 4, 2, 0.15625, 0.5, 4.1875, 2},
    {"5162 8162 5262 18162", 2, 7, 4, 4.0 / 3, 0.15625, 5.0 / 6, 4.1875, 4.0 / 3},
    {"5164 8164 5264 6464", 2, 3, 4, 10.0 / 3, 0.15625, 0.5, 4.1875, 10.0 / 3},
    {"5159", 2, 7, 4, 1.5, 0.15625, 0.25, 4.1875, 1.5},
    {"5197", 2, 6, 4, 1.5, 0.1875, 1, 4.125, 1.5},
    {"5663", 2, 5, 4.25, 2, 0, 0.5, 4.25, 2},
    {"5167 8167 5267 18167", 4, 20, 1.75, 0.5, 0.28125, 0.5, 2.0625, 0.5},
    {"8195", 4, 15, 1.75, 0.666, 0.297, 0.531, 2.031, 0.666},
    {"5126 8126 5526 18126", 1, 2, 8.5, 5.5, 0, 0, 8.5, 5.5},
    {"5168", 2, 2, 3.5, 5, 0.5, 0.5, 4, 5},
    {"5165 8165 5265 8465", 1, 1, 8.5, 11, 0, 0, 8.5, 11},
    {"6573", 1, 2, 8.13, 5, 0.185, 0.5, 8.13, 5},
    {"6871", 3, 6, 2.375, 1.25, 0.3725, 1.125, 2.69, 1.5},
    {"6873", 2, 4, 3.75, 2, 0.375, 1.125, 4, 2.25},
    {"6874", 2, 3, 3.75, 3, 0.375, 0.625, 4, 3.375},
    {"6879 8769", 2, 6, 3.75, 1.25, 0.375, 1.125, 4, 1.5},
    {"5366 8366 5266 5066", 2, 15, 3.4375, 2.0 / 3, 0.53125, 0.5, 4, 2.0 / 3},
    {"5026", 2, 9, 3.4375, 0.9375, 0.4975, 0.51125, 4.0674, 1.13},
    {"5395 8395 5895", 2, 4, 3.375, 7.0 / 3, 0.6875, 7.0 / 12, 3.75, 2.5},
    {"5196 8196", 3, 3, 2.75, 2.75, 0.125, 0.5, 2.75, 3},
    {"6490", 3, 5, 2.6875, 2, 0.125, 0.5, 2.78125, 2},
    {"6570", 4, 8, 1.75, 1.25, 0.5, 0.5, 1.938, 1.25},
    {"5388", 1, 3, 5, 3, 1.75, 1, 5, 3},
    {"5389", 1, 2, 6, 4, 1.25, 1.25, 6, 4.5},
};

// Millimetres.
const Row kA4Sheets[] = {
    {"L7160 J8160", 3, 7, 63.5, 38.1, 7.21, 15.15, 66.04, 38.1},
    {"L7163 J8163", 2, 7, 99.1, 38.1, 4.65, 15.15, 101.6, 38.1},
    {"L7159 J8159", 3, 8, 63.5, 33.9, 7.21, 12.9, 66.04, 33.9},
    {"L7161 J8161", 3, 6, 63.5, 46.6, 7.21, 8.7, 66.04, 46.6},
    {"L7162 J8162", 2, 8, 99.1, 33.9, 4.65, 12.9, 101.6, 33.9},
    {"L7164 J8164", 3, 4, 63.5, 72, 7.21, 4.5, 66.04, 72},
    {"L7165 J8165", 2, 4, 99.1, 67.7, 4.65, 13.1, 101.6, 67.7},
    {"L7166 J8166", 2, 3, 99.1, 93.1, 4.65, 8.85, 101.6, 93.1},
    {"L7167 J8167", 1, 1, 199.6, 289.1, 5.2, 3.95, 199.6, 289.1},
    {"L7168 J8168", 1, 2, 199.6, 143.5, 5.2, 5, 199.6, 143.5},
    {"L7169 J8169", 2, 2, 99.1, 139, 4.65, 9.5, 101.6, 139},
    {"L7173 J8173", 2, 5, 99.1, 57, 4.65, 6, 101.6, 57},
    {"L7651 J8651 L7551", 5, 13, 38.1, 21.2, 4.75, 10.7, 40.6, 21.2},
    {"L7654 J8654 L4770", 4, 10, 45.7, 25.4, 9.7, 21.5, 48.3, 25.4},
    {"L7157 J8157", 3, 11, 64, 24.3, 6.5, 14.85, 66.5, 24.3},
    {"L4785 L4784", 2, 5, 80, 50, 17.5, 13.5, 95, 55},
    {"L4732", 5, 16, 35.6, 16.9, 11, 13.3, 38.1, 16.9},
    {"3474", 3, 8, 70, 37, 0, 0.5, 70, 37},
    {"3475 3490", 3, 8, 70, 36, 0, 4.5, 70, 36},
    {"3422", 3, 8, 70, 35, 0, 8.5, 70, 35},
    {"3421", 3, 11, 70, 25.4, 0, 8.8, 70, 25.4},
    {"3669", 3, 5, 70, 50.8, 0, 21.5, 70, 50.8},
    {"3484", 2, 8, 105, 37, 0, 0.5, 105, 37},
    {"3423", 2, 8, 105, 35, 0, 8.5, 105, 35},
    {"3477", 2, 7, 105, 41, 0, 5, 105, 41},
    {"3424", 2, 6, 105, 48, 0, 4.5, 105, 48},
    {"3425", 2, 5, 105, 57, 0, 6, 105, 57},
    {"3426", 2, 4, 105, 70, 0, 8.5, 105, 70},
    {"3427", 2, 4, 105, 74, 0, 0.5, 105, 74},
    {"3483", 2, 2, 105, 148, 0, 0.5, 105, 148},
    {"3655", 1, 2, 210, 148, 0, 0.5, 210, 148},
    {"4781", 2, 6, 97, 42.3, 8, 21.6, 97, 42.3},
    {"6091", 3, 8, 64.6, 33.8, 8.1, 13.3, 64.6, 33.8},
    {"3651", 4, 10, 52, 29.5, 1, 1, 52, 29.5},
};

LabelSheet sheetOf(const Row& row, Paper paper) {
  QStringList numbers = QString::fromLatin1(row.numbers).split(QLatin1Char(' '));
  const QString name = numbers.takeFirst();
  const double unit = isMetric(paper) ? kMillimetresPerInch : 1;
  return {name,
          numbers,
          paper,
          row.columns,
          row.rows,
          QSizeF(row.width, row.height) / unit,
          QPointF(row.left, row.top) / unit,
          QSizeF(row.across, row.down) / unit};
}

LabelSheet envelope(const char* number, Paper paper) {
  LabelSheet sheet{QString::fromLatin1(number), {}, paper};
  sheet.label = sheet.pitch = sheet.paperSize();
  return sheet;
}

QList<LabelSheet> makeSheets() {
  QList<LabelSheet> sheets;
  for (const Row& row : kLetterSheets) {
    sheets.append(sheetOf(row, Paper::Letter));
  }
  sheets.append(envelope("No. 10", Paper::Envelope10));
  sheets.append(envelope("No. 6-3/4", Paper::Envelope634));
  for (const Row& row : kA4Sheets) {
    sheets.append(sheetOf(row, Paper::A4));
  }
  return sheets;
}

}  // namespace

const QList<LabelSheet>& LabelSheet::all() {
  static const QList<LabelSheet> sheets = makeSheets();
  return sheets;
}

}  // namespace postwright::addressbook
