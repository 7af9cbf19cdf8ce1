#include "apps/addressbook/sheet/MailBarcode.h"

#include <zint.h>

#include <QPainter>
#include <QRegularExpression>
#include <memory>

#include "apps/tables/LabelText.h"

namespace postwright::addressbook {

namespace {

constexpr double kTrackerHeight = 0.048;
constexpr qsizetype kShortMailer = 6;
constexpr int kTrackingDigits = 20;
constexpr QLatin1String kNoPresort("00");  // the barcode identifier of mail that is not presorted

bool isNumber(const QString& text, qsizetype digits) {
  static const QRegularExpression kDigits(QStringLiteral("^[0-9]+$"));
  return text.size() == digits && kDigits.match(text).hasMatch();
}

// zint lays the bars out as three rows of cells, every other column a bar: above, middle, below.
bool isSet(const zint_symbol& symbol, int row, int column) {
  return (symbol.encoded_data[row][column / 8] >> (column % 8) & 1) != 0;
}

}  // namespace

QString MailCode::problem() const {
  if (!isNumber(service, 3)) {
    return tr("The service type is three digits.");
  }
  // Those of nine digits begin with 9, those of six do not.
  const bool isNine = isNumber(mailer, 9) && mailer.startsWith(QLatin1Char('9'));
  const bool isSix = isNumber(mailer, kShortMailer) && !mailer.startsWith(QLatin1Char('9'));
  if (!isNine && !isSix) {
    return tr("A mailer identifier is six digits, or nine digits that begin with 9.");
  }
  return {};
}

quint64 MailCode::serials() const {
  return mailer.size() == kShortMailer ? 1'000'000'000 : 1'000'000;
}

QString MailCode::tracking(quint64 piece) const {
  const QString head = kNoPresort + service + mailer;
  return head + QString::number((serial + piece) % serials())
                    .rightJustified(kTrackingDigits - head.size(), QLatin1Char('0'));
}

QString routingCode(const QString& label, const QString& deliveryPoint) {
  const auto place = tables::partLabel(label).place;
  QString zip = place ? place->zip : QString();
  zip.remove(QLatin1Char('-')).remove(QLatin1Char(' '));
  return zip.size() == 9 ? zip + deliveryPoint : QString();
}

QString barStates(const QString& tracking, const QString& routing) {
  const std::unique_ptr<zint_symbol, decltype(&ZBarcode_Delete)> symbol(ZBarcode_Create(),
                                                                        &ZBarcode_Delete);
  if (symbol == nullptr) {
    return {};
  }
  symbol->symbology = BARCODE_USPS_IMAIL;
  const QByteArray digits = (tracking + QLatin1Char('-') + routing).toLatin1();
  const int outcome =
      ZBarcode_Encode(symbol.get(), reinterpret_cast<const unsigned char*>(digits.constData()),
                      static_cast<int>(digits.size()));
  if (outcome >= ZINT_ERROR || symbol->rows != 3 || symbol->width != 2 * kBars - 1) {
    return {};
  }
  QString states;
  for (int bar = 0; bar < kBars; ++bar) {
    const bool ascends = isSet(*symbol, 0, 2 * bar);
    const bool descends = isSet(*symbol, 2, 2 * bar);
    states += QLatin1Char(ascends ? (descends ? 'F' : 'A') : (descends ? 'D' : 'T'));
  }
  return states;
}

void drawBars(QPainter& painter, const QPointF& corner, const QString& states) {
  constexpr double kArm = (kBarHeight - kTrackerHeight) / 2;
  for (qsizetype bar = 0; bar < states.size(); ++bar) {
    const QChar state = states[bar];
    const bool ascends = state == u'F' || state == u'A';
    const bool descends = state == u'F' || state == u'D';
    painter.fillRect(
        QRectF(corner.x() + static_cast<double>(bar) * kBarPitch, corner.y() + (ascends ? 0 : kArm),
               kBarWidth, kTrackerHeight + (ascends ? kArm : 0) + (descends ? kArm : 0)),
        Qt::black);
  }
}

}  // namespace postwright::addressbook
