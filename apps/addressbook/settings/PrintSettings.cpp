#include "apps/addressbook/settings/PrintSettings.h"

#include <QSettings>
#include <algorithm>

namespace postwright::addressbook {

namespace {

const QString kSheet = QStringLiteral("print/sheet");
const QString kOwnSheets = QStringLiteral("print/ownSheets");
const QString kFamily = QStringLiteral("print/font");
const QString kPoints = QStringLiteral("print/points");
const QString kShift = QStringLiteral("print/shift");
const QString kByZip = QStringLiteral("print/byZip");
const QString kLook = QStringLiteral("print/look");
const QString kCase = QStringLiteral("print/case");
const QString kPunctuation = QStringLiteral("print/punctuation");
const QString kHasSender = QStringLiteral("print/hasSender");
const QString kSender = QStringLiteral("print/sender");
const QString kPicture = QStringLiteral("print/picture");
const QString kBarcode = QStringLiteral("print/barcode");
const QString kService = QStringLiteral("print/serviceType");
const QString kMailer = QStringLiteral("print/mailerId");
const QString kSerial = QStringLiteral("print/nextSerial");

// Measures as one line of numbers, in the order of LabelSheet.
constexpr qsizetype kNumbers = 9;

QVariantList measuresOf(const LabelSheet& sheet) {
  return {static_cast<int>(sheet.paper), sheet.columns,   sheet.rows,      sheet.label.width(),
          sheet.label.height(),          sheet.first.x(), sheet.first.y(), sheet.pitch.width(),
          sheet.pitch.height()};
}

// Settings may have been edited by anyone: a sheet that cannot be is not offered.
QList<LabelSheet> readSheets(const QSettings& settings) {
  QList<LabelSheet> sheets;
  const QVariantMap stored = settings.value(kOwnSheets).toMap();
  for (auto named = stored.cbegin(); named != stored.cend(); ++named) {
    const QVariantList numbers = named.value().toList();
    if (numbers.size() != kNumbers) {
      continue;
    }
    const auto number = [&numbers](int at) { return numbers[at].toDouble(); };
    LabelSheet sheet{named.key(), {}, numbers[0].toInt() == 1 ? Paper::A4 : Paper::Letter};
    sheet.columns = numbers[1].toInt();
    sheet.rows = numbers[2].toInt();
    sheet.label = {number(3), number(4)};
    sheet.first = {number(5), number(6)};
    sheet.pitch = {number(7), number(8)};
    if (sheet.problem().isEmpty()) {
      sheets.append(sheet);
    }
  }
  return sheets;
}

}  // namespace

PrintSettings PrintSettings::load(const QSettings& settings) {
  const auto choice = [&settings](const QString& key, int usual) {
    const int number = settings.value(key, usual).toInt();
    return number >= 0 && number <= 2 ? number : usual;
  };
  PrintSettings print;
  print.ownSheets = readSheets(settings);
  print.sheet = LabelSheet::named(settings.value(kSheet).toString(), print.ownSheets);
  LabelStyle& style = print.style;
  style.family = settings.value(kFamily, style.family).toString();
  style.largestPoints = std::clamp(settings.value(kPoints, style.largestPoints).toDouble(),
                                   LabelStyle::kLeastPoints, LabelStyle::kMostPoints);
  print.shift = settings.value(kShift).toPointF();
  print.isByZip = settings.value(kByZip).toBool();
  print.hasLook = settings.value(kLook).toBool();
  print.look.textCase = static_cast<TextCase>(choice(kCase, 0));
  print.look.punctuation = static_cast<Punctuation>(choice(kPunctuation, 1));
  print.hasSender = settings.value(kHasSender).toBool();
  print.sender = settings.value(kSender).toString();
  print.picture = settings.value(kPicture).toString();
  print.mail.service = settings.value(kService).toString();
  print.mail.mailer = settings.value(kMailer).toString();
  print.mail.serial = settings.value(kSerial, print.mail.serial).toULongLong();
  print.hasBarcode = settings.value(kBarcode).toBool() && print.mail.problem().isEmpty();
  return print;
}

void PrintSettings::save(QSettings& settings) const {
  QVariantMap sheets;
  for (const LabelSheet& own : ownSheets) {
    sheets.insert(own.name, measuresOf(own));
  }
  settings.setValue(kSheet, sheet.name);
  settings.setValue(kOwnSheets, sheets);
  settings.setValue(kFamily, style.family);
  settings.setValue(kPoints, style.largestPoints);
  settings.setValue(kShift, shift);
  settings.setValue(kByZip, isByZip);
  settings.setValue(kLook, hasLook);
  settings.setValue(kCase, static_cast<int>(look.textCase));
  settings.setValue(kPunctuation, static_cast<int>(look.punctuation));
  settings.setValue(kHasSender, hasSender);
  settings.setValue(kSender, sender);
  settings.setValue(kPicture, picture);
  settings.setValue(kBarcode, hasBarcode);
  settings.setValue(kService, mail.service);
  settings.setValue(kMailer, mail.mailer);
  settings.setValue(kSerial, mail.serial);
}

}  // namespace postwright::addressbook
