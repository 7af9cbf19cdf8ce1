#include "apps/addressbook/formats/vcard/ContentLine.h"

#include <algorithm>

#include "apps/addressbook/formats/vcard/QuotedPrintable.h"
#include "apps/tables/TextFile.h"

namespace postwright::addressbook {

namespace {

constexpr qsizetype kFoldedLength = 75;

bool isLineBreak(char c) {
  return c == '\n' || c == '\r';
}

// Takes the folds out: a line break and the blank after it. Version 2.1 folds at a blank, which
// stays.
QByteArray unfold(const QByteArray& folded, CardVersion version) {
  QByteArray line;
  line.reserve(folded.size());
  for (qsizetype offset = 0; offset < folded.size(); ++offset) {
    if (!isLineBreak(folded[offset])) {
      line += folded[offset];
      continue;
    }
    while (offset + 1 < folded.size() && isLineBreak(folded[offset + 1])) {
      ++offset;
    }
    offset += version == CardVersion::V21 ? 0 : 1;
  }
  return line;
}

// Returns the first place of one of `signs` that is not inside quotation marks, or the size.
qsizetype findUnquoted(QByteArrayView text, QByteArrayView signs, qsizetype from) {
  bool isQuoted = false;
  for (qsizetype offset = from; offset < text.size(); ++offset) {
    if (text[offset] == '"') {
      isQuoted = !isQuoted;
    } else if (!isQuoted && signs.contains(text[offset])) {
      return offset;
    }
  }
  return text.size();
}

bool isUtf8(const QByteArray& bytes) {
  return QUtf8StringView(bytes.data(), bytes.size()).isValidUtf8();
}

QString textOf(const QByteArray& bytes) {
  return QString::fromUtf8(isUtf8(bytes) ? bytes : tables::windows1252ToUtf8(bytes));
}

// Puts the blank of a fold every 75 octets, never inside a character.
QByteArray fold(const QByteArray& line, const QByteArray& lineBreak) {
  QByteArray folded;
  qsizetype begin = 0;
  qsizetype room = kFoldedLength;
  while (line.size() - begin > room) {
    qsizetype end = begin + room;
    while (end > begin + 1 && (static_cast<uchar>(line[end]) & 0xC0) == 0x80) {
      --end;
    }
    folded += line.sliced(begin, end - begin) + lineBreak + ' ';
    begin = end;
    room = kFoldedLength - 1;
  }
  return folded + line.sliced(begin) + lineBreak;
}

QString nameOf(const QString& parameter) {
  return parameter.section(QLatin1Char('='), 0, 0).toUpper();
}

bool isNamed(const QString& parameter, const QString& name) {
  return parameter.contains(QLatin1Char('=')) && nameOf(parameter) == name;
}

// A type, with or without its name: version 2.1 writes HOME for TYPE=home.
bool isType(const QString& parameter) {
  static const QStringList known = {QStringLiteral("HOME"),   QStringLiteral("WORK"),
                                    QStringLiteral("DOM"),    QStringLiteral("INTL"),
                                    QStringLiteral("POSTAL"), QStringLiteral("PARCEL"),
                                    QStringLiteral("PREF")};
  return isNamed(parameter, QStringLiteral("TYPE")) || known.contains(parameter.toUpper());
}

// "\n" as in the examples of RFC 6350, and so a backslash doubled; the rest as RFC 6868 has it.
QString escapeParameter(const QString& text) {
  QString escaped = text;
  escaped.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
  escaped.replace(QLatin1Char('^'), QStringLiteral("^^"));
  escaped.replace(QLatin1Char('"'), QStringLiteral("^'"));
  escaped.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
  return QLatin1Char('"') + escaped + QLatin1Char('"');
}

QString unescapeParameter(QString value) {
  if (value.size() > 1 && value.startsWith(QLatin1Char('"')) && value.endsWith(QLatin1Char('"'))) {
    value = value.sliced(1, value.size() - 2);
  }
  QString text;
  for (qsizetype place = 0; place < value.size(); ++place) {
    const QChar next = place + 1 < value.size() ? value[place + 1] : QChar();
    const bool isCaret = value[place] == QLatin1Char('^');
    if ((isCaret && next == QLatin1Char('n')) ||
        (value[place] == QLatin1Char('\\') && next.toLower() == QLatin1Char('n'))) {
      text += QLatin1Char('\n');
      ++place;
    } else if (isCaret && (next == QLatin1Char('^') || next == QLatin1Char('\''))) {
      text += next == QLatin1Char('^') ? next : QLatin1Char('"');
      ++place;
    } else if (value[place] == QLatin1Char('\\') &&
               (next == QLatin1Char('\\') || next == QLatin1Char(',') ||
                next == QLatin1Char(';'))) {
      text += next;
      ++place;
    } else {
      text += value[place];
    }
  }
  return text;
}

}  // namespace

std::optional<ContentLine> ContentLine::parse(const QByteArray& folded, CardVersion version) {
  const qsizetype colon = findUnquoted(folded, ":", 0);
  if (colon == folded.size()) {
    // Folds, too, may stand before the colon; only what has none at all is not a property.
    return std::nullopt;
  }
  QByteArray head = unfold(folded.first(colon), version);
  const QByteArray name = head.first(findUnquoted(head, ";", 0)).trimmed();
  const qsizetype dot = name.lastIndexOf('.');
  ContentLine line(QString::fromUtf8(name.first(std::max<qsizetype>(dot, 0))),
                   QString::fromUtf8(name.sliced(dot + 1)).toUpper());
  for (qsizetype begin = findUnquoted(head, ";", 0); begin < head.size();) {
    const qsizetype end = findUnquoted(head, ";", begin + 1);
    line._parameters.append(QString::fromUtf8(head.sliced(begin + 1, end - begin - 1)).trimmed());
    begin = end;
  }
  const QByteArray value = folded.sliced(colon + 1);
  const bool isEncoded = std::any_of(line._parameters.begin(), line._parameters.end(),
                                     [](const QString& each) { return isQuotedPrintable(each); });
  line._value =
      isEncoded ? textOf(decodeQuotedPrintable(value)).trimmed() : textOf(unfold(value, version));
  return line;
}

QByteArray ContentLine::format(CardVersion version, const QByteArray& lineBreak) const {
  ContentLine line = *this;
  line._parameters.removeIf([](const QString& each) {
    return isNamed(each, QStringLiteral("ENCODING")) || isNamed(each, QStringLiteral("CHARSET")) ||
           isQuotedPrintable(each);
  });
  const bool isPlain = std::all_of(_value.begin(), _value.end(), [](QChar c) {
    return c >= QLatin1Char(' ') && c.unicode() < 0x7F;
  });
  const bool isEncoded = version == CardVersion::V21 && !isPlain;
  if (isEncoded) {
    line._parameters +=
        {QStringLiteral("CHARSET=UTF-8"), QStringLiteral("ENCODING=QUOTED-PRINTABLE")};
  }
  QString head = _group.isEmpty() ? _name : _group + QLatin1Char('.') + _name;
  for (const QString& parameter : line._parameters) {
    head += QLatin1Char(';') + parameter;
  }
  const QByteArray start = head.toUtf8() + ':';
  if (isEncoded) {
    QString value = _value;
    value.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    return start + encodeQuotedPrintable(value.toUtf8(), start.size(), lineBreak) + lineBreak;
  }
  return version == CardVersion::V21 ? start + _value.toUtf8() + lineBreak
                                     : fold(start + _value.toUtf8(), lineBreak);
}

QStringList ContentLine::types() const {
  QStringList types;
  for (const QString& parameter : _parameters) {
    if (isType(parameter)) {
      const QString values = parameter.section(QLatin1Char('='), -1).toUpper();
      types += QString(values).remove(QLatin1Char('"')).split(QLatin1Char(','));
    }
  }
  types.removeAll(QStringLiteral("PREF"));
  types.sort();
  return types;
}

void ContentLine::copyTypes(const ContentLine& line) {
  std::copy_if(line._parameters.begin(), line._parameters.end(), std::back_inserter(_parameters),
               isType);
}

std::optional<QString> ContentLine::parameter(const QString& name) const {
  for (const QString& parameter : _parameters) {
    if (isNamed(parameter, name)) {
      return unescapeParameter(parameter.section(QLatin1Char('='), 1));
    }
  }
  return std::nullopt;
}

void ContentLine::setParameter(const QString& name, const QString& value) {
  removeParameter(name);
  _parameters.append(name + QLatin1Char('=') + escapeParameter(value));
}

void ContentLine::removeParameter(const QString& name) {
  _parameters.removeIf([&name](const QString& each) { return isNamed(each, name); });
}

bool ContentLine::isQuotedPrintable(const QString& parameter) {
  const QString name = nameOf(parameter).trimmed();
  const QString value = parameter.section(QLatin1Char('='), -1).trimmed();
  return (name == u"ENCODING" || !parameter.contains(QLatin1Char('='))) &&
         value.compare(u"QUOTED-PRINTABLE", Qt::CaseInsensitive) == 0;
}

QList<QStringList> splitComponents(const QString& value, CardVersion version) {
  QList<QStringList> components{{QString()}};
  for (qsizetype place = 0; place < value.size(); ++place) {
    const QChar c = value[place];
    if (c == QLatin1Char('\\') && place + 1 < value.size()) {
      components.last().last() += unescapeText(value.sliced(place, 2));
      ++place;
    } else if (c == QLatin1Char(';')) {
      components.append(QStringList{QString()});
    } else if (c == QLatin1Char(',') && version != CardVersion::V21) {
      components.last().append(QString());
    } else {
      components.last().last() += c;
    }
  }
  return components;
}

QString joinComponents(const QList<QStringList>& components, CardVersion version) {
  QStringList joined;
  for (const QStringList& values : components) {
    QStringList escaped;
    for (const QString& value : values) {
      escaped.append(escapeText(value, version));
    }
    joined.append(escaped.join(version == CardVersion::V21 ? QLatin1Char('\n') : QLatin1Char(',')));
  }
  return joined.join(QLatin1Char(';'));
}

QString unescapeText(const QString& value) {
  QString text;
  for (qsizetype place = 0; place < value.size(); ++place) {
    if (value[place] != QLatin1Char('\\') || place + 1 == value.size()) {
      text += value[place];
      continue;
    }
    const QChar next = value[++place];
    const bool isSign = next == QLatin1Char(',') || next == QLatin1Char(';') ||
                        next == QLatin1Char('\\') || next == QLatin1Char(':');
    if (next.toLower() == QLatin1Char('n')) {
      text += QLatin1Char('\n');
    } else {
      text += isSign ? QString(next) : QLatin1Char('\\') + next;
    }
  }
  return text;
}

QString escapeText(const QString& text, CardVersion version) {
  QString escaped = text;
  if (version != CardVersion::V21) {
    escaped.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
    escaped.replace(QLatin1Char(','), QStringLiteral("\\,"));
    escaped.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
  }
  return escaped.replace(QLatin1Char(';'), QStringLiteral("\\;"));
}

}  // namespace postwright::addressbook
