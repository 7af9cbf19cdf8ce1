#include <postwright/LabelForm.h>
#include <postwright/TextForm.h>

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

namespace postwright {

namespace {

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

}  // namespace

QString addressInForm(const QString& address, PunctuationForm punctuation,
                      const PostwrightClient& client) {
  if (punctuation == PunctuationKeep) {
    return address;
  }
  QString text;
  if (punctuation == PunctuationPostal) {
    text = QString::fromStdWString(TextForm::Postal(address.toStdWString()));
  } else {
    QStringList lines = address.split(u'\n');
    for (QString& line : lines) {
      line = bareLine(line, client);
    }
    text = lines.join(u'\n');
  }
  // From capitals, as the service writes: "O'Neil" without its sign is to read as it would the next
  // time.
  return client.fixCase(text.toUpper());
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
  return QString::fromStdWString(
      TextForm::WithNamesAsTyped(corrected.toStdWString(), typed.toStdWString()));
}

}  // namespace postwright
