#include "apps/workbook/NumberFormats.h"

#include <QDateTime>
#include <QHash>
#include <QRegularExpression>
#include <cmath>

#include "apps/workbook/XmlText.h"

namespace postwright::workbook {

namespace {

constexpr double kLargestWhole = 1e15;  // a double tells all whole numbers below
constexpr double kSecondsADay = 86'400;
constexpr double kLastDay = 2'958'465;  // of the year 9999
constexpr double kLargestFiveDigits = 99'999;

// Formats that every workbook has, by their numbers.
bool isPlainNumber(int id) {
  return id >= 0 && id <= 4;
}

bool isBuiltInDate(int id) {
  return (id >= 14 && id <= 22) || (id >= 27 && id <= 36) || (id >= 45 && id <= 47) ||
         (id >= 50 && id <= 58);
}

// The code without what is shown literally: quoted text, escaped characters, "[$-409]".
QString bareCode(const QString& code) {
  static const QRegularExpression literal(QStringLiteral(R"("[^"]*"|\\.|_.|\*.|\[[^\]]*\])"));
  return QString(code).remove(literal).toLower();
}

// "00000", and "00000\-0000" of ZIP+4 codes.
QString digitsCode(const QString& code) {
  static const QRegularExpression form(QStringLiteral(R"(^0{2,12}(\\?-0{1,12}|"-"0{1,12})?$)"));
  return form.match(code).hasMatch() ? QString(code).remove(u'\\').remove(u'"') : QString();
}

QString inDigits(double number, const QString& code) {
  QString digits = QString::number(static_cast<qint64>(number));
  const qsizetype hyphen = code.indexOf(u'-');
  digits = digits.rightJustified(code.size() - (hyphen < 0 ? 0 : 1), u'0');
  return hyphen < 0 ? digits : digits.insert(digits.size() - (code.size() - hyphen - 1), u'-');
}

QString day(double number, bool isFrom1904) {
  const double seconds = std::round((number - std::floor(number)) * kSecondsADay);
  const QDate first = isFrom1904 ? QDate(1904, 1, 1) : QDate(1899, 12, 30);
  const QDateTime time =
      QDateTime(first.addDays(static_cast<qint64>(std::floor(number))), QTime(0, 0), Qt::UTC)
          .addSecs(static_cast<qint64>(seconds));
  return seconds == 0 ? time.date().toString(Qt::ISODate)
                      : time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

}  // namespace

NumberFormats::NumberFormats(const QByteArray& styles) {
  const XmlText xml(styles);
  QHash<int, QString> codes;
  for (pugi::xml_node format = childNamed(childNamed(xml.root(), "numFmts"), "numFmt"); format;
       format = nextNamed(format, "numFmt")) {
    codes.insert(attributeNamed(format, "numFmtId").toInt(), attributeNamed(format, "formatCode"));
  }
  for (pugi::xml_node style = childNamed(childNamed(xml.root(), "cellXfs"), "xf"); style;
       style = nextNamed(style, "xf")) {
    const int id = attributeNamed(style, "numFmtId").toInt();
    _byStyle.append(formatOf(id, codes.value(id)));
  }
}

NumberFormats::Format NumberFormats::formatOf(int id, const QString& code) {
  if (code.isEmpty()) {
    return {isPlainNumber(id) ? Kind::General : isBuiltInDate(id) ? Kind::Date : Kind::Other, {}};
  }
  static const QRegularExpression zip(QStringLiteral(R"(^\[<=99999\](0+);(.*)$)"));
  const QRegularExpressionMatch both = zip.match(code);
  if (both.hasMatch() && !digitsCode(both.captured(2)).isEmpty()) {
    return {Kind::Digits, both.captured(1) + u';' + digitsCode(both.captured(2))};
  }
  if (const QString digits = digitsCode(code); !digits.isEmpty()) {
    return {Kind::Digits, digits};
  }
  static const QRegularExpression dated(QStringLiteral("[ymdhs]"));
  static const QRegularExpression plain(QStringLiteral(R"(^[#0,.?]+$)"));
  const QString bare = bareCode(code);
  return {bare == u"general" || plain.match(bare).hasMatch() ? Kind::General
          : dated.match(bare).hasMatch()                     ? Kind::Date
                                                             : Kind::Other,
          {}};
}

NumberFormats::Shown NumberFormats::show(const QString& stored, int style, bool isFrom1904) const {
  bool isNumber = false;
  const double number = stored.toDouble(&isNumber);
  if (!isNumber || !std::isfinite(number)) {
    return {stored, CellKind::Kept};
  }
  const bool isWhole = std::floor(number) == number && std::fabs(number) < kLargestWhole;
  const QString plain = isWhole ? QString::number(static_cast<qint64>(number)) : stored;
  const Format format = _byStyle.value(style);
  switch (format.kind) {
    case Kind::Digits:
      if (isWhole && number >= 0) {
        const QStringList sections = format.code.split(u';');
        return {inDigits(number, number <= kLargestFiveDigits ? sections.first() : sections.last()),
                CellKind::Number};
      }
      break;
    case Kind::Date:
      return {number >= 0 && number <= kLastDay ? day(number, isFrom1904) : plain, CellKind::Kept};
    case Kind::Other:
      return {plain, CellKind::Kept};
    case Kind::General:
      break;
  }
  return {plain, CellKind::Number};
}

}  // namespace postwright::workbook
