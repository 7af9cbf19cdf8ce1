#include <postwright/LabelForm.h>

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

namespace postwright {

namespace {

QChar characterAt(const QString& line, qsizetype at) {
  return at >= 0 && at < line.size() ? line[at] : QChar();
}

// A letter that stands alone or between signs.
bool isInitial(const QString& line, qsizetype at) {
  return characterAt(line, at).isLetter() && !characterAt(line, at - 1).isLetterOrNumber() &&
         !characterAt(line, at + 1).isLetterOrNumber();
}

bool isKept(const QString& line, qsizetype at) {
  const QChar before = characterAt(line, at - 1);
  const QChar after = characterAt(line, at + 1);
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
bool joinsWords(const QString& line, qsizetype at) {
  const QChar sign = line[at];
  return sign == u'\'' || sign == u'\u2019' ||
         (sign == u'.' && isInitial(line, at - 1) && isInitial(line, at + 1));
}

QString postalLine(const QString& line) {
  QString kept;
  kept.reserve(line.size());
  for (qsizetype at = 0; at < line.size(); ++at) {
    if (!line[at].isPunct() || isKept(line, at)) {
      kept += line[at];
    } else if (!joinsWords(line, at)) {
      kept += u' ';
    }
  }
  return kept.simplified();
}

QString bareLine(const QString& line, const PostwrightClient& client) {
  static const QRegularExpression kAddOn(QStringLiteral(R"((?<=\b[0-9]{5})-[0-9]{4}\s*$)"));
  const QRegularExpressionMatch addOn = kAddOn.match(line);
  return client.fixPunctuationLine(line.left(addOn.hasMatch() ? addOn.capturedStart() : -1)) +
         addOn.captured().trimmed();
}

// Every one that the client takes for the end of a line, and writes as a line feed.
bool isLineBreak(QChar c) {
  return QStringView(u"\n\r\u0085\u2028\u2029").contains(c);
}

qsizetype lineEnd(const QString& text, qsizetype at) {
  return std::find_if(text.begin() + at, text.end(), isLineBreak) - text.begin();
}

QString lineInCase(QString line, const PostwrightClient& client) {
  const QString words = line.trimmed();
  return words.isEmpty() ? line
                         : line.replace(line.indexOf(words), words.size(), client.fixCase(words));
}

bool isName(const QString& line) {
  return std::none_of(line.begin(), line.end(), [](QChar c) { return c.isDigit(); });
}

QString lettersAndDigits(const QString& line) {
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
    if (!isName(*typed) || lettersAndDigits(*corrected) != lettersAndDigits(*typed)) {
      return;
    }
    *corrected = *typed;
  }
}

}  // namespace

QString addressInForm(const QString& address, PunctuationForm punctuation,
                      const PostwrightClient& client) {
  if (punctuation == PunctuationKeep) {
    return address;
  }
  QStringList lines = address.split(u'\n');
  for (QString& line : lines) {
    line = punctuation == PunctuationPostal ? postalLine(line) : bareLine(line, client);
  }
  // From capitals, as the service writes: "O'Neil" without its sign is to read as it would the next
  // time.
  return client.fixCase(lines.join(u'\n').toUpper());
}

QString labelInCase(const QString& text, const PostwrightClient& client) {
  QString changed;
  changed.reserve(text.size());
  for (qsizetype at = 0; at < text.size();) {
    const qsizetype end = lineEnd(text, at);
    changed += lineInCase(text.mid(at, end - at), client);
    at = end;
    for (; at < text.size() && isLineBreak(text[at]); ++at) {
      changed += text[at];
    }
  }
  return changed;
}

QString withNamesAsTyped(const QString& corrected, const QString& typed) {
  static const QRegularExpression kLineBreak(
      QStringLiteral(R"(\s*[\n\v\f\r\x{85}\x{2028}\x{2029}]+\s*)"));
  QStringList lines = corrected.split(u'\n');
  const QStringList names = typed.trimmed().split(kLineBreak, Qt::SkipEmptyParts);
  PutNamesBack(lines.begin(), lines.end(), names.begin(), names.end());
  PutNamesBack(lines.rbegin(), lines.rend(), names.rbegin(), names.rend());
  return lines.join(u'\n');
}

}  // namespace postwright
