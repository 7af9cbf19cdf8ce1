#ifndef POSTWRIGHT_APPS_WORKBOOK_XMLTEXT_H_
#define POSTWRIGHT_APPS_WORKBOOK_XMLTEXT_H_

#include <QByteArray>
#include <QByteArrayView>
#include <QCoreApplication>
#include <QList>
#include <QString>
#include <pugixml.hpp>

namespace postwright::workbook {

// An XML text of a workbook and what it says, for changing single elements of it.
//
//   XmlText xml(part);
//   xml.replace(cell, "<c r=\"B2\"/>");
//   part = xml.result();
//
// What is not replaced stays byte for byte. Elements are changed in the order of the text.
class XmlText {
  Q_DECLARE_TR_FUNCTIONS(postwright::workbook::XmlText)

 public:
  // The most markup that is read: twelve million tags, which make some two million cells.
  static constexpr qsizetype kMostTags = 12'000'000;

  // Throws FileError where the text is not well formed, not UTF-8, or has more than kMostTags.
  explicit XmlText(QByteArray text);

  pugi::xml_node root() const { return _document.document_element(); }

  // Where the tag at `begin` ends; a ">" may stand within quotation marks.
  static qsizetype behindTag(QByteArrayView text, qsizetype begin);

  // The element, with its tags, in the text.
  QByteArrayView textOf(pugi::xml_node element) const;

  void replace(pugi::xml_node element, const QByteArray& text);
  // Puts text in front of an element, after one, or after all that is in one.
  void insertBefore(pugi::xml_node element, const QByteArray& text);
  void insertBehind(pugi::xml_node element, const QByteArray& text);
  void append(pugi::xml_node parent, const QByteArray& text);

  QByteArray result() const;

 private:
  struct Splice {
    qsizetype begin;
    qsizetype end;
    QByteArray text;
  };

  qsizetype beginOf(pugi::xml_node element) const;

  QByteArray _text;
  pugi::xml_document _document;
  QList<Splice> _splices;
};

// The name without its prefix: whoever writes a workbook chooses those.
QByteArrayView localName(const char* name);
bool isNamed(pugi::xml_node node, const char* local);
pugi::xml_node childNamed(pugi::xml_node parent, const char* local);
// The first element after this one, of the same parent, with that name.
pugi::xml_node nextNamed(pugi::xml_node node, const char* local);
// "x:" of "x:row"; empty without one.
QByteArray prefixOf(pugi::xml_node node);
// The value of an attribute, whatever its prefix; empty where there is none.
QString attributeNamed(pugi::xml_node node, const char* local);

// Text as it may stand between tags or in an attribute; what XML does not allow is left out.
QByteArray xmlEscaped(const QString& text);

}  // namespace postwright::workbook

#endif  // POSTWRIGHT_APPS_WORKBOOK_XMLTEXT_H_
