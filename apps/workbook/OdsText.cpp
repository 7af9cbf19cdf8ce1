#include "apps/workbook/OdsText.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

#include "apps/workbook/Workbook.h"
#include "apps/workbook/XmlText.h"

namespace postwright::workbook {

namespace {

constexpr int kMostBlanks = 4096;  // that one element stands for
constexpr int kDeepest = 64;

// What an element of a paragraph stands for; nothing for one that only holds text.
QString characterOf(pugi::xml_node element) {
  return isNamed(element, "s")
             ? QString(std::clamp(attributeNamed(element, "c").toInt(), 1, kMostBlanks), u' ')
         : isNamed(element, "tab")        ? QStringLiteral("\t")
         : isNamed(element, "line-break") ? QStringLiteral("\n")
                                          : QString();
}

// The text of a paragraph: white space is one blank, and none where one stands before it; further
// blanks are elements.
void takeText(pugi::xml_node parent, QString& text, bool& isBehindBlank, int depth) {
  static const QRegularExpression space(QStringLiteral("[ \\t\\r\\n]+"));
  if (depth > kDeepest) {
    failDamagedSheet();
  }
  for (const pugi::xml_node child : parent.children()) {
    if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
      const QString piece = QString::fromUtf8(child.value()).replace(space, QStringLiteral(" "));
      text += isBehindBlank && piece.startsWith(u' ') ? piece.sliced(1) : piece;
      isBehindBlank = piece.isEmpty() ? isBehindBlank : piece.endsWith(u' ');
    } else if (const QString character = characterOf(child); !character.isEmpty()) {
      text += character;
      isBehindBlank = false;
    } else if (!isNamed(child, "note") && !isNamed(child, "annotation")) {
      takeText(child, text, isBehindBlank, depth + 1);
    }
  }
}

}  // namespace

QString odsParagraphs(pugi::xml_node cell) {
  QStringList lines;
  for (pugi::xml_node line = childNamed(cell, "p"); line; line = nextNamed(line, "p")) {
    QString text;
    bool isBehindBlank = true;
    takeText(line, text, isBehindBlank, 0);
    lines.append(text);
  }
  return lines.join(u'\n');
}

// A blank at an end of a line, or after another one, needs an element.
QByteArray odsParagraph(const QByteArray& prefix, const QString& line) {
  static const QRegularExpression blanks(QStringLiteral("^ +| +$| {2,}|\\t"));
  QByteArray text;
  qsizetype copied = 0;
  for (auto found = blanks.globalMatch(line); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    text += xmlEscaped(line.sliced(copied, match.capturedStart() - copied));
    text += match.captured() == u"\t" ? "<" + prefix + "tab/>"
                                      : "<" + prefix + "s " + prefix + "c=\"" +
                                            QByteArray::number(match.capturedLength()) + "\"/>";
    copied = match.capturedEnd();
  }
  return "<" + prefix + "p>" + text + xmlEscaped(line.sliced(copied)) + "</" + prefix + "p>";
}

}  // namespace postwright::workbook
