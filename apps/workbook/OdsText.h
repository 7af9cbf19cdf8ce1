#ifndef POSTWRIGHT_APPS_WORKBOOK_ODSTEXT_H_
#define POSTWRIGHT_APPS_WORKBOOK_ODSTEXT_H_

#include <QByteArray>
#include <QString>
#include <pugixml.hpp>

namespace postwright::workbook {

// The text of an OpenDocument cell (ISO/IEC 26300-1, 5.1.3 and 6.1), its paragraphs as lines;
// notes on it are left out.
QString odsParagraphs(pugi::xml_node cell);

// A line as a paragraph, whose elements have the prefix.
QByteArray odsParagraph(const QByteArray& prefix, const QString& line);

}  // namespace postwright::workbook

#endif  // POSTWRIGHT_APPS_WORKBOOK_ODSTEXT_H_
