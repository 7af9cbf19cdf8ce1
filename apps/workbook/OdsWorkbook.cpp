#include "apps/workbook/OdsWorkbook.h"

#include "apps/workbook/OdsSheet.h"
#include "apps/workbook/XmlText.h"

namespace postwright::workbook {

namespace {

const QByteArray kContent = "content.xml";
const QByteArray kMimeType = "mimetype";
const QByteArray kSpreadsheet = "application/vnd.oasis.opendocument.spreadsheet";

}  // namespace

bool OdsWorkbook::isOne(const ZipParts& parts) {
  return parts.has(kMimeType) && parts.has(kContent) &&
         parts.read(kMimeType).startsWith(kSpreadsheet);
}

QByteArray OdsWorkbook::make() {
  const QByteArray declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  return ZipParts::make({
      {kMimeType, kSpreadsheet, true},
      {"META-INF/manifest.xml",
       declaration +
           "<manifest:manifest "
           "xmlns:manifest=\"urn:oasis:names:tc:opendocument:xmlns:manifest:1.0\" "
           "manifest:version=\"1.2\"><manifest:file-entry manifest:full-path=\"/\" "
           "manifest:media-type=\"" +
           kSpreadsheet +
           "\"/><manifest:file-entry manifest:full-path=\"content.xml\" "
           "manifest:media-type=\"text/xml\"/></manifest:manifest>"},
      {kContent, declaration + "<office:document-content "
                               "xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
                               "xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\" "
                               "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" "
                               "office:version=\"1.2\"><office:body><office:spreadsheet>"
                               "<table:table table:name=\"Labels\"></table:table>"
                               "</office:spreadsheet></office:body></office:document-content>"},
  });
}

OdsWorkbook::OdsWorkbook(ZipParts parts) : _parts(std::move(parts)) {
  const XmlText content(_parts.read(kContent));
  for (const pugi::xml_node table : odsTables(content)) {
    _names.append(attributeNamed(table, "name"));
  }
  if (_names.isEmpty()) {
    failDamagedSheet();
  }
}

QList<SheetRow> OdsWorkbook::rows(int sheet) const {
  return OdsSheet(_parts.read(kContent), sheet).rows();
}

QByteArray OdsWorkbook::edited(int sheet, const QList<RowChange>& changes,
                               const QList<QStringList>& added) const {
  return _parts.with(kContent, OdsSheet(_parts.read(kContent), sheet).with(changes, added));
}

}  // namespace postwright::workbook
