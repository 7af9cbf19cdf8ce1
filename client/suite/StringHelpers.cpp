#include "client/suite/StringHelpers.h"

namespace postwright::StringHelpers {
namespace {

// Reads the character at `position` and moves `position` past it. A surrogate without its other
// half is a character of its own: not a letter, and copied like any other.
char32_t NextCharacter(QStringView text, qsizetype& position) {
  const QChar first = text[position++];
  if (first.isHighSurrogate() && position < text.size() && text[position].isLowSurrogate()) {
    return QChar::surrogateToUcs4(first, text[position++]);
  }
  return first.unicode();
}

bool IsLetter(char32_t character) {
  return QChar::isLetter(character) || QChar::isMark(character);
}

bool IsLetterOrDigit(char32_t character) {
  return IsLetter(character) || QChar::isNumber(character);
}

bool IsApostrophe(char32_t character) {
  return character == U'\'' || character == U'\u2019';
}

bool IsLineTerminator(QChar character) {
  return character == u'\n' || character == u'\r' || character == u'\u0085' ||
         character == u'\u2028' || character == u'\u2029';
}

// Appends `run`, letters and digits alone, capitalized. What comes after the first letter is
// lowered in one piece, so that a letter whose lower case is longer than itself comes out whole.
void AppendCapitalizedRun(QStringView run, QString& result) {
  qsizetype position = 0;
  while (position < run.size()) {
    const qsizetype start = position;
    const char32_t character = NextCharacter(run, position);
    if (QChar::isLetter(character)) {
      result.append(QChar::fromUcs4(QChar::toTitleCase(character)));
      break;
    }
    result.append(run.mid(start, position - start));
  }
  result.append(run.mid(position).toString().toLower());
}

// True when the character at `position` is an apostrophe with a letter or digit after it.
bool IsInnerApostrophe(QStringView text, qsizetype position) {
  qsizetype next = position;
  return IsApostrophe(NextCharacter(text, next)) && next < text.size() &&
         IsLetterOrDigit(NextCharacter(text, next));
}

}  // namespace

QString trim(const QString& text) {
  return text.trimmed();
}

QStringList lines(const QString& text) {
  QStringList result;
  qsizetype start = 0;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (IsLineTerminator(text[i])) {
      result.append(text.mid(start, i - start));
      if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') {
        ++i;
      }
      start = i + 1;
    }
  }
  if (start < text.size()) {
    result.append(text.mid(start));
  }
  return result;
}

bool isNilOrEmpty(const std::optional<QString>& text) {
  return !text || text->isEmpty();
}

QString alphanumericOnly(const QString& text) {
  QString kept;
  kept.reserve(text.size());
  for (qsizetype position = 0; position < text.size();) {
    const qsizetype start = position;
    if (IsLetterOrDigit(NextCharacter(text, position))) {
      kept.append(QStringView(text).mid(start, position - start));
    }
  }
  return kept;
}

bool isAllLetters(const QString& text) {
  for (qsizetype position = 0; position < text.size();) {
    if (!IsLetter(NextCharacter(text, position))) {
      return false;
    }
  }
  return true;
}

QString capitalized(const QString& text) {
  const QStringView view(text);
  QString result;
  result.reserve(text.size());
  qsizetype position = 0;
  while (position < view.size()) {
    const qsizetype start = position;
    qsizetype end = start;
    while (position < view.size()) {
      const bool goesOn = IsLetterOrDigit(NextCharacter(view, position)) ||
                          (end > start && IsInnerApostrophe(view, end));
      if (!goesOn) {
        break;
      }
      end = position;
    }
    AppendCapitalizedRun(view.mid(start, end - start), result);
    result.append(view.mid(end, position - end));
  }
  return result;
}

QString stringWithFormat(const QString& format, const QStringList& arguments) {
  constexpr QStringView kPlaceholder = u"%@";
  QString result;
  qsizetype start = 0;
  for (const QString& argument : arguments) {
    const qsizetype found = format.indexOf(kPlaceholder, start);
    if (found < 0) {
      break;
    }
    result.append(QStringView(format).mid(start, found - start));
    result.append(argument);
    start = found + kPlaceholder.size();
  }
  return result.append(QStringView(format).mid(start));
}

}  // namespace postwright::StringHelpers
