#include "apps/LabelForm.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

namespace postwright {

namespace {

QChar At(const QString& line, qsizetype at) {
  return at >= 0 && at < line.size() ? line[at] : QChar();
}

// A letter that stands alone or between signs.
bool IsInitial(const QString& line, qsizetype at) {
  return At(line, at).isLetter() && !At(line, at - 1).isLetterOrNumber() &&
         !At(line, at + 1).isLetterOrNumber();
}

bool IsKept(const QString& line, qsizetype at) {
  const QChar before = At(line, at - 1);
  const QChar after = At(line, at + 1);
  const bool within = before.isLetterOrNumber() && after.isLetterOrNumber();
  switch (line[at].unicode()) {
    case u'#':
    case u'&':
      return true;
    case u'/':
      return within;
    case u'-':
      return within && (before.isDigit() || after.isDigit());
    case u'.':
      return before.isDigit() && after.isDigit();
    default:
      return false;
  }
}

// Does the sign leave no gap: O'NEIL, N.W.?
bool JoinsWords(const QString& line, qsizetype at) {
  const QChar sign = line[at];
  return sign == u'\'' || sign == u'\u2019' ||
         (sign == u'.' && IsInitial(line, at - 1) && IsInitial(line, at + 1));
}

QString PostalLine(const QString& line) {
  QString kept;
  kept.reserve(line.size());
  for (qsizetype at = 0; at < line.size(); ++at) {
    if (!line[at].isPunct() || IsKept(line, at)) {
      kept += line[at];
    } else if (!JoinsWords(line, at)) {
      kept += u' ';
    }
  }
  return kept.simplified();
}

QString BareLine(const QString& line, const PostwrightClient& client) {
  static const QRegularExpression kAddOn(QStringLiteral(R"((?<=\b[0-9]{5})-[0-9]{4}\s*$)"));
  const QRegularExpressionMatch addOn = kAddOn.match(line);
  return client.fixPunctuationLine(line.left(addOn.hasMatch() ? addOn.capturedStart() : -1)) +
         addOn.captured().trimmed();
}

bool IsName(const QString& line) {
  return std::none_of(line.begin(), line.end(), [](QChar c) { return c.isDigit(); });
}

QString LettersAndDigits(const QString& line) {
  QString kept;
  for (const QChar c : line.normalized(QString::NormalizationForm_C)) {
    if (!c.isSpace() && !c.isPunct()) {
      kept += c;
    }
  }
  return kept.toUpper();
}

// Puts the lines of `typed` in the place of those of `corrected` while they are the same names.
template <typename CorrectedLine, typename TypedLine>
void PutNamesBack(CorrectedLine corrected, CorrectedLine end, TypedLine typed, TypedLine last) {
  for (; corrected != end && typed != last; ++corrected, ++typed) {
    if (!IsName(*typed) || LettersAndDigits(*corrected) != LettersAndDigits(*typed)) {
      return;
    }
    *corrected = *typed;
  }
}

}  // namespace

QString AddressInForm(const QString& address, Punctuation punctuation,
                      const PostwrightClient& client) {
  if (punctuation == Punctuation::kKeep) {
    return address;
  }
  QStringList lines = address.split(u'\n');
  for (QString& line : lines) {
    line = punctuation == Punctuation::kPostal ? PostalLine(line) : BareLine(line, client);
  }
  // From capitals, as the service writes: "O'Neil" without its sign is to read as it would the next
  // time.
  return client.fixCase(lines.join(u'\n').toUpper());
}

QString LabelInCase(const QString& text, const PostwrightClient& client) {
  QStringList lines = text.split(u'\n');
  for (QString& line : lines) {
    const QString words = line.trimmed();
    if (!words.isEmpty()) {
      line.replace(line.indexOf(words), words.size(), client.fixCase(words));
    }
  }
  return lines.join(u'\n');
}

QString WithNamesAsTyped(const QString& corrected, const QString& typed) {
  static const QRegularExpression kLineBreak(QStringLiteral("\\s*[\r\n]+\\s*"));
  QStringList lines = corrected.split(u'\n');
  const QStringList names = typed.trimmed().split(kLineBreak, Qt::SkipEmptyParts);
  PutNamesBack(lines.begin(), lines.end(), names.begin(), names.end());
  PutNamesBack(lines.rbegin(), lines.rend(), names.rbegin(), names.rend());
  return lines.join(u'\n');
}

}  // namespace postwright
