#include "apps/addressbook/formats/vcard/CardScanner.h"

#include <algorithm>
#include <optional>

#include "apps/tables/FileError.h"

namespace postwright::addressbook {

namespace {

constexpr qsizetype kLongestLine = 1024 * 1024;

// The name of a property, without its group, upper case, and what comes before its value.
struct LineHead {
  QByteArray name;
  bool isQuotedPrintable = false;
  QByteArray value;  // of BEGIN, END and VERSION, upper case; empty for any other
};

qsizetype endOfPhysicalLine(const QByteArray& text, qsizetype begin) {
  const auto* const found =
      std::find_if(text.begin() + begin, text.end(), [](char c) { return c == '\n' || c == '\r'; });
  if (found == text.end()) {
    return text.size();
  }
  const qsizetype end = found - text.begin() + 1;
  return *found == '\r' && end < text.size() && text[end] == '\n' ? end + 1 : end;
}

bool isQuotedPrintable(const QByteArray& head) {
  const QByteArrayList parameters = head.split(';');
  return std::any_of(parameters.begin(), parameters.end(), [](const QByteArray& parameter) {
    return ContentLine::isQuotedPrintable(QString::fromUtf8(parameter));
  });
}

LineHead headOf(QByteArrayView line) {
  const qsizetype colon = std::find(line.begin(), line.end(), ':') - line.begin();
  const QByteArray head = line.first(colon).trimmed().toByteArray().toUpper();
  QByteArray name = head.first(std::find(head.begin(), head.end(), ';') - head.begin());
  name = name.sliced(name.lastIndexOf('.') + 1);
  LineHead read{name, isQuotedPrintable(head), {}};
  if (colon < line.size() && (name == "BEGIN" || name == "END" || name == "VERSION")) {
    read.value = line.sliced(colon + 1).trimmed().toByteArray().toUpper();
  }
  return read;
}

bool isSoftBroken(QByteArrayView physicalLine) {
  return physicalLine.trimmed().endsWith('=');
}

// The end of the line that begins at `begin`, with what is folded after it.
qsizetype endOfLine(const QByteArray& text, qsizetype begin, bool isQuotedPrintable) {
  qsizetype last = begin;
  qsizetype end = endOfPhysicalLine(text, begin);
  while (end < text.size()) {
    const bool isFolded = text[end] == ' ' || text[end] == '\t';
    const QByteArrayView before = QByteArrayView(text).sliced(last, end - last);
    if (!isFolded && !(isQuotedPrintable && isSoftBroken(before))) {
      break;
    }
    last = end;
    end = endOfPhysicalLine(text, end);
  }
  return end;
}

std::optional<CardProperty> propertyOf(const QByteArray& name) {
  if (name == "ADR") {
    return CardProperty::Address;
  }
  if (name == "LABEL") {
    return CardProperty::Label;
  }
  if (name == "FN") {
    return CardProperty::FormattedName;
  }
  if (name == "N") {
    return CardProperty::Name;
  }
  return name == "ORG" ? std::optional(CardProperty::Organization) : std::nullopt;
}

qsizetype lineNumber(const QByteArray& text, qsizetype offset) {
  return std::count(text.begin(), text.begin() + offset, '\n') + 1;
}

// Reads line by line; `depth` tells how many cards are open.
class Scan {
 public:
  explicit Scan(const QByteArray& utf8) : _text(utf8) {}

  QList<Card> run() {
    for (qsizetype begin = 0; begin < _text.size();) {
      const qsizetype physicalEnd = endOfPhysicalLine(_text, begin);
      const LineHead head = headOf(QByteArrayView(_text).sliced(begin, physicalEnd - begin));
      const tables::TextRange range{begin, endOfLine(_text, begin, head.isQuotedPrintable)};
      take(head, range);
      begin = range.end;
    }
    if (_depth > 0) {
      throw tables::FileError(
          CardScanner::tr("The vCard that begins on line %1 has no END:VCARD. The end of "
                          "the file may be missing.")
              .arg(lineNumber(_text, _card.range.begin)));
    }
    return _cards;
  }

 private:
  void take(const LineHead& head, const tables::TextRange& range) {
    if (head.name == "BEGIN" && head.value == "VCARD") {
      if (_depth++ == 0) {
        _card = Card{range, 0, CardVersion::V30, {}};
      }
    } else if (head.name == "END" && head.value == "VCARD" && _depth > 0) {
      if (--_depth == 0) {
        _card.endLine = range.begin;
        _card.range.end = range.end;
        _cards.append(_card);
      }
    } else if (_depth == 1) {
      takeProperty(head, range);
    }
  }

  void takeProperty(const LineHead& head, const tables::TextRange& range) {
    if (head.name == "VERSION") {
      _card.version = head.value == "4.0"   ? CardVersion::V40
                      : head.value == "2.1" ? CardVersion::V21
                                            : CardVersion::V30;
    }
    const std::optional<CardProperty> property = propertyOf(head.name);
    if (!property) {
      return;
    }
    if (range.size() > kLongestLine) {
      throw tables::FileError(
          CardScanner::tr("The %1 on line %2 is longer than 1 MiB. Remove it from the "
                          "file, or mend it, and open the file again.")
              .arg(QString::fromLatin1(head.name))
              .arg(lineNumber(_text, range.begin)));
    }
    _card.lines.append({*property, range});
  }

  const QByteArray& _text;
  QList<Card> _cards;
  Card _card;
  int _depth = 0;
};

}  // namespace

QList<Card> CardScanner::scan(const QByteArray& utf8) {
  return Scan(utf8).run();
}

}  // namespace postwright::addressbook
