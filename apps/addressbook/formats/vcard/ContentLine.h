#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_CONTENTLINE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_CONTENTLINE_H_

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

namespace postwright::addressbook {

// The versions of vCard that differ in how a line is written.
enum class CardVersion {
  V21,  // quoted-printable values, parameters without a name
  V30,  // RFC 2426
  V40,  // RFC 6350
};

// One property of a vCard: "item1.ADR;TYPE=home:;;12 Main St;Austin;TX;78701;".
//
//   std::optional<ContentLine> line = ContentLine::parse(bytes, CardVersion::V40);
//   line->setValue(joinComponents(components));
//   card += line->format(CardVersion::V40, "\r\n");
//
// Parameters that are not set here are written as they were.
class ContentLine {
 public:
  ContentLine(QString group, QString name) : _group(std::move(group)), _name(std::move(name)) {}

  // Reads a line with its folds, in UTF-8. Nil where it has no colon.
  static std::optional<ContentLine> parse(const QByteArray& folded, CardVersion version);

  // Returns the line folded at 75 octets, `lineBreak` at its end. In version 2.1 a value that needs
  // it is quoted-printable.
  QByteArray format(CardVersion version, const QByteArray& lineBreak) const;

  // Tells whether a parameter says that the value is quoted-printable: by its name, or without one
  // as in version 2.1.
  static bool isQuotedPrintable(const QString& parameter);

  const QString& group() const { return _group; }
  const QString& name() const { return _name; }  // upper case

  // The value, still escaped.
  const QString& value() const { return _value; }
  void setValue(const QString& value) { _value = value; }

  // The types ("HOME", "WORK"), upper case, in order of the alphabet, without "PREF".
  QStringList types() const;
  // Takes over the parameters that say which address `line` is about.
  void copyTypes(const ContentLine& line);

  // The value of a parameter without its quotation marks and escapes (RFC 6868); nil where the line
  // has no such parameter.
  std::optional<QString> parameter(const QString& name) const;
  void setParameter(const QString& name, const QString& value);

 private:
  void removeParameter(const QString& name);

  QString _group;
  QString _name;
  QStringList _parameters;  // as written: TYPE=home, or HOME alone
  QString _value;
};

// A structured value in its components and their values: "a;b,c" gives {{a}, {b, c}}, unescaped.
// Version 2.1 knows no lists: there commas are text.
QList<QStringList> splitComponents(const QString& value, CardVersion version);
QString joinComponents(const QList<QStringList>& components, CardVersion version);

// A value that is one text.
QString unescapeText(const QString& value);
QString escapeText(const QString& text, CardVersion version);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_CONTENTLINE_H_
