#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_MAILBARCODE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_MAILBARCODE_H_

#include <QCoreApplication>
#include <QPointF>
#include <QString>

class QPainter;

namespace postwright::addressbook {

// The Intelligent Mail barcode (USPS-B-3200): 65 bars of four states that tell the Postal Service
// who mails, which piece it is, and where it goes.

// What the mailer says in the barcode; one piece differs from the next in its serial number.
struct MailCode {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::MailCode)

 public:
  // Why no barcode can be made of it, in the user's language; empty where all is well.
  QString problem() const;

  // How many serial numbers there are: with a mailer identifier of 6 digits 10^9, of 9 digits 10^6.
  quint64 serials() const;

  // The tracking code of the piece that is `piece` after the first one, 20 digits; past the last
  // serial number it starts over.
  QString tracking(quint64 piece) const;

  QString service = {};  // three digits: the class of mail and what is asked of it
  QString mailer = {};   // the identifier that the Postal Service has given, of 6 or 9 digits
  quint64 serial = 1;    // of the first piece
};

// The routing code of a label: the nine digits of its ZIP+4, and the two of its delivery point
// where that is known. Empty where it has no ZIP+4.
QString routingCode(const QString& label, const QString& deliveryPoint = {});

// The bars of a barcode from left to right: F full, A ascender, D descender, T tracker. Empty for
// digits that no barcode can be made of.
QString barStates(const QString& tracking, const QString& routing);

// Draws the bars on a painter whose unit is the inch, the barcode's upper left corner at `corner`:
// 22 bars to the inch, each 0.020 inch wide (USPS-B-3200, the middle of what it allows).
void drawBars(QPainter& painter, const QPointF& corner, const QString& states);

// What it takes on a piece of mail, in inches, and what is kept free of print: left and right, and
// above and below (DMM 202.5).
inline constexpr int kBars = 65;
inline constexpr double kBarPitch = 1.0 / 22;
inline constexpr double kBarWidth = 0.020;
inline constexpr double kBarHeight = 0.145;
inline constexpr double kBarcodeLength = (kBars - 1) * kBarPitch + kBarWidth;
inline constexpr double kClearBeside = 0.125;
inline constexpr double kClearAbove = 0.028;

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_MAILBARCODE_H_
