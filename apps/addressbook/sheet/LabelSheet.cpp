#include "apps/addressbook/sheet/LabelSheet.h"

#include <QPageSize>
#include <algorithm>
#include <cmath>

namespace postwright::addressbook {

namespace {

constexpr double kSideMargin = 0.125;
constexpr double kTopMargin = 0.0625;
constexpr double kTolerance = 0.01;  // inches; measures on boxes are rounded
constexpr double kLeastLabel = 0.4;
constexpr int kMostLabels = 500;

// DMM 202.2.1: the area in which an address is read, from the lower edge of an envelope.
constexpr double kReadAbove = 0.625;
constexpr double kReadBelow = 2.75;
constexpr double kReadSide = 0.5;
constexpr double kAddressShare = 0.42;  // of the width, left of the address

// A return address takes the upper part of a label, the address is set in below it.
constexpr QSizeF kLeastWithSender(3.0, 1.5);
constexpr double kSenderHeight = 0.32;
constexpr double kSenderWidth = 0.6;
constexpr double kIndent = 0.2;
constexpr double kEnvelopeMargin = 0.25;

// "2-5/8", as on the boxes; decimals where no such fraction is meant.
QString inFractions(double inches) {
  for (const int parts : {1, 2, 3, 4, 8, 16}) {
    const double count = inches * parts;
    if (std::abs(count - std::round(count)) > 0.005) {
      continue;
    }
    const int whole = static_cast<int>(std::round(count)) / parts;
    const int rest = static_cast<int>(std::round(count)) % parts;
    const QString fraction = QStringLiteral("%1/%2").arg(rest).arg(parts);
    return rest == 0    ? QString::number(whole)
           : whole == 0 ? fraction
                        : QStringLiteral("%1-%2").arg(whole).arg(fraction);
  }
  return QString::number(inches, 'g', 4);
}

QString measure(double inches, bool metric) {
  return metric ? QString::number(std::round(inches * kMillimetresPerInch * 10) / 10)
                : inFractions(inches);
}

}  // namespace

bool isMetric(Paper paper) {
  return paper == Paper::A4;
}

LabelSheet LabelSheet::named(const QString& name, const QList<LabelSheet>& own) {
  for (const QList<LabelSheet>* const sheets : {&own, &all()}) {
    const auto found = std::find_if(sheets->begin(), sheets->end(), [&](const LabelSheet& sheet) {
      return sheet.name == name || sheet.otherNumbers.contains(name);
    });
    if (found != sheets->end()) {
      return *found;
    }
  }
  return all().first();
}

QSizeF LabelSheet::paperSize() const {
  switch (paper) {
    case Paper::A4:
      return QSizeF(210, 297) / kMillimetresPerInch;
    case Paper::Envelope10:
      return {9.5, 4.125};
    case Paper::Envelope634:
      return {6.5, 3.625};
    case Paper::Letter:
      break;
  }
  return {8.5, 11};
}

QPageLayout LabelSheet::pageLayout() const {
  const QPageSize::PageSizeId sizes[] = {QPageSize::Letter, QPageSize::A4, QPageSize::Comm10E,
                                         QPageSize::EnvelopePersonal};
  return {QPageSize(sizes[static_cast<int>(paper)]),
          isEnvelope() ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(),
          QPageLayout::Inch};
}

QString LabelSheet::title() const {
  if (isEnvelope()) {
    return tr("Envelope %1: %2 x %3 in")
        .arg(name, inFractions(label.height()), inFractions(label.width()));
  }
  const bool metric = isMetric(paper);
  QString numbers = QStringList(QStringList(name) +
                                otherNumbers.first(std::min<qsizetype>(1, otherNumbers.size())))
                        .join(QStringLiteral(", "));
  // The height comes first on boxes with inches, the width on those with millimetres.
  const QString width = measure(label.width(), metric);
  const QString height = measure(label.height(), metric);
  return tr("%1: %2 x %3 %4, %n a sheet", nullptr, size())
      .arg(numbers, metric ? width : height, metric ? height : width,
           metric ? QStringLiteral("mm") : QStringLiteral("in"));
}

QRectF LabelSheet::place(int index) const {
  const int column = index % columns;
  const int row = index / columns;
  return {first + QPointF(column * pitch.width(), row * pitch.height()), label};
}

QString LabelSheet::problem() const {
  if (columns < 1 || rows < 1 || size() > kMostLabels) {
    return tr("A sheet has from 1 to %1 labels.").arg(kMostLabels);
  }
  if (label.width() < kLeastLabel || label.height() < kLeastLabel) {
    return tr("A label is at least 0.4 in (10 mm) wide and high.");
  }
  if ((columns > 1 && pitch.width() < label.width() - kTolerance) ||
      (rows > 1 && pitch.height() < label.height() - kTolerance)) {
    return tr("The labels overlap: from one to the next is less than a label's size.");
  }
  const QRectF bounds =
      QRectF(QPointF(), paperSize()).adjusted(-kTolerance, -kTolerance, kTolerance, kTolerance);
  if (!bounds.contains(place(0)) || !bounds.contains(place(size() - 1))) {
    return tr("The labels do not fit on the paper.");
  }
  return {};
}

QRectF LabelSheet::addressArea(bool hasSender) const {
  const double width = label.width();
  const double height = label.height();
  if (isEnvelope()) {
    const double left = width * kAddressShare;
    return {left, height - kReadBelow, width - kReadSide - left, kReadBelow - kReadAbove};
  }
  const double left = hasSender ? width * kIndent : kSideMargin;
  const double top = hasSender ? senderArea().bottom() + kTopMargin : kTopMargin;
  return {left, top, width - kSideMargin - left, height - kTopMargin - top};
}

QRectF LabelSheet::senderArea() const {
  if (isEnvelope()) {
    const double height = label.height() - kReadBelow - kEnvelopeMargin;
    return {kEnvelopeMargin, kEnvelopeMargin, label.width() * kAddressShare, height};
  }
  if (label.width() < kLeastWithSender.width() || label.height() < kLeastWithSender.height()) {
    return {};
  }
  return {kSideMargin, kTopMargin * 2, label.width() * kSenderWidth,
          label.height() * kSenderHeight};
}

}  // namespace postwright::addressbook
