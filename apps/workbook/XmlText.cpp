#include "apps/workbook/XmlText.h"

#include <algorithm>

#include "apps/tables/FileError.h"

namespace postwright::workbook {

namespace {

[[noreturn]] void failDamaged() {
  throw tables::FileError(
      XmlText::tr("The file is damaged: a part of it is not XML that can be read. Open it in the "
                  "program that made it and save it again."));
}

qsizetype behind(QByteArrayView text, const char* mark, qsizetype from) {
  const qsizetype found = text.indexOf(mark, from);
  if (found < 0) {
    failDamaged();
  }
  return found + static_cast<qsizetype>(qstrlen(mark));
}

// Where the element that begins at `begin` ends.
qsizetype behindElement(QByteArrayView text, qsizetype begin) {
  int depth = 0;
  for (qsizetype at = begin;;) {
    at = text.indexOf('<', at);
    if (at < 0) {
      failDamaged();
    }
    const QByteArrayView rest = text.sliced(at);
    if (rest.startsWith("<!--")) {
      at = behind(text, "-->", at);
    } else if (rest.startsWith("<![CDATA[")) {
      at = behind(text, "]]>", at);
    } else if (rest.startsWith("<?")) {
      at = behind(text, "?>", at);
    } else {
      const qsizetype end = XmlText::behindTag(text, at);
      const bool isClosing = rest.startsWith("</");
      const bool isEmpty = text[end - 2] == '/';
      depth += isClosing ? -1 : isEmpty ? 0 : 1;
      at = end;
      if (depth == 0) {
        return end;
      }
    }
  }
}

}  // namespace

XmlText::XmlText(QByteArray text) : _text(std::move(text)) {
  if (std::count(_text.cbegin(), _text.cend(), '<') > kMostTags) {
    throw tables::FileError(
        tr("The sheet has too many cells to be edited here. Save it as CSV, and open that."));
  }
  // Places in the text are told by the parser, so the text must not be converted by it.
  const pugi::xml_parse_result read = _document.load_buffer(
      _text.constData(), static_cast<size_t>(_text.size()),
      pugi::parse_default | pugi::parse_ws_pcdata | pugi::parse_declaration, pugi::encoding_utf8);
  const QByteArray encoding =
      QByteArray(_document.first_child().attribute("encoding").value()).toUpper();
  const bool isUtf8 = encoding.isEmpty() || encoding == "UTF-8" || encoding == "US-ASCII" ||
                      _document.first_child().type() != pugi::node_declaration;
  if (!read || !isUtf8 || !root()) {
    failDamaged();
  }
}

qsizetype XmlText::behindTag(QByteArrayView text, qsizetype begin) {
  char quote = '\0';
  for (qsizetype at = begin; at < text.size(); ++at) {
    const char c = text[at];
    if (quote != '\0') {
      quote = c == quote ? '\0' : quote;
    } else if (c == '"' || c == '\'') {
      quote = c;
    } else if (c == '>') {
      return at + 1;
    }
  }
  failDamaged();
}

qsizetype XmlText::beginOf(pugi::xml_node element) const {
  const auto name = static_cast<qsizetype>(element.offset_debug());
  if (name < 1 || name > _text.size() || _text[name - 1] != '<') {
    failDamaged();
  }
  return name - 1;
}

QByteArrayView XmlText::textOf(pugi::xml_node element) const {
  const qsizetype begin = beginOf(element);
  return QByteArrayView(_text).sliced(begin, behindElement(_text, begin) - begin);
}

void XmlText::replace(pugi::xml_node element, const QByteArray& text) {
  const qsizetype begin = beginOf(element);
  _splices.append({begin, behindElement(_text, begin), text});
}

void XmlText::insertBefore(pugi::xml_node element, const QByteArray& text) {
  const qsizetype begin = beginOf(element);
  _splices.append({begin, begin, text});
}

void XmlText::insertBehind(pugi::xml_node element, const QByteArray& text) {
  const qsizetype end = behindElement(_text, beginOf(element));
  _splices.append({end, end, text});
}

void XmlText::append(pugi::xml_node parent, const QByteArray& text) {
  const qsizetype begin = beginOf(parent);
  const qsizetype end = behindElement(_text, begin);
  if (_text[end - 2] == '/') {  // "<row/>"
    _splices.append({end - 2, end, ">" + text + "</" + parent.name() + ">"});
    return;
  }
  const qsizetype closing = _text.lastIndexOf('<', end - 1);
  _splices.append({closing, closing, text});
}

QByteArray XmlText::result() const {
  QByteArray changed;
  changed.reserve(_text.size());
  qsizetype copied = 0;
  for (const Splice& splice : _splices) {
    changed += QByteArrayView(_text).sliced(copied, splice.begin - copied);
    changed += splice.text;
    copied = splice.end;
  }
  return changed + QByteArrayView(_text).sliced(copied).toByteArray();
}

QByteArrayView localName(const char* name) {
  const QByteArrayView whole(name);
  return whole.sliced(whole.indexOf(':') + 1);
}

bool isNamed(pugi::xml_node node, const char* local) {
  return node.type() == pugi::node_element && localName(node.name()) == QByteArrayView(local);
}

pugi::xml_node childNamed(pugi::xml_node parent, const char* local) {
  pugi::xml_node child = parent.first_child();
  while (child && !isNamed(child, local)) {
    child = child.next_sibling();
  }
  return child;
}

pugi::xml_node nextNamed(pugi::xml_node node, const char* local) {
  do {
    node = node.next_sibling();
  } while (node && !isNamed(node, local));
  return node;
}

QByteArray prefixOf(pugi::xml_node node) {
  const QByteArrayView name(node.name());
  return name.first(name.indexOf(':') + 1).toByteArray();
}

QString attributeNamed(pugi::xml_node node, const char* local) {
  for (const pugi::xml_attribute attribute : node.attributes()) {
    if (localName(attribute.name()) == QByteArrayView(local)) {
      return QString::fromUtf8(attribute.value());
    }
  }
  return {};
}

QByteArray xmlEscaped(const QString& text) {
  QString allowed = text;
  allowed.removeIf([](QChar c) {
    return (c.unicode() < u' ' && c != u'\n' && c != u'\t') || c.unicode() >= 0xFFFE;
  });
  return allowed.toHtmlEscaped().toUtf8();
}

}  // namespace postwright::workbook
