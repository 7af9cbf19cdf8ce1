#include "apps/workbook/XlsxWorkbook.h"

#include "apps/workbook/XlsxSheet.h"
#include "apps/workbook/XmlText.h"

namespace postwright::workbook {

namespace {

const QByteArray kContentTypes = "[Content_Types].xml";

// "xl/_rels/workbook.xml.rels" for "xl/workbook.xml".
QByteArray relationsPart(const QByteArray& part) {
  const qsizetype folder = part.lastIndexOf('/') + 1;
  return part.first(folder) + "_rels/" + part.sliced(folder) + ".rels";
}

// A target is meant from the folder of the part, or from the root.
QByteArray resolved(const QByteArray& part, const QByteArray& target) {
  if (target.startsWith('/')) {
    return target.sliced(1);
  }
  QByteArrayList folders = part.split('/');
  folders.removeLast();
  for (const QByteArray& step : target.split('/')) {
    if (step == ".." && !folders.isEmpty()) {
      folders.removeLast();
    } else if (step != "." && step != "..") {
      folders.append(step);
    }
  }
  return folders.join('/');
}

QByteArray xmlPart(const char* text) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n" + QByteArray(text);
}

}  // namespace

bool XlsxWorkbook::isOne(const ZipParts& parts) {
  return parts.has(kContentTypes) && parts.has("_rels/.rels");
}

QByteArray XlsxWorkbook::make() {
  return ZipParts::make({
      {kContentTypes,
       xmlPart("<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
               "<Default Extension=\"rels\" "
               "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
               "<Override PartName=\"/xl/workbook.xml\" "
               "ContentType=\"application/"
               "vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml\"/>"
               "<Override PartName=\"/xl/worksheets/sheet1.xml\" "
               "ContentType=\"application/"
               "vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml\"/></Types>")},
      {"_rels/.rels",
       xmlPart("<Relationships "
               "xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
               "<Relationship Id=\"rId1\" "
               "Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/"
               "officeDocument\" Target=\"xl/workbook.xml\"/></Relationships>")},
      {"xl/workbook.xml",
       xmlPart("<workbook xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" "
               "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\">"
               "<sheets><sheet name=\"Labels\" sheetId=\"1\" r:id=\"rId1\"/></sheets>"
               "</workbook>")},
      {"xl/_rels/workbook.xml.rels",
       xmlPart("<Relationships "
               "xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
               "<Relationship Id=\"rId1\" "
               "Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/"
               "worksheet\" Target=\"worksheets/sheet1.xml\"/></Relationships>")},
      {"xl/worksheets/sheet1.xml",
       xmlPart("<worksheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">"
               "<sheetData/></worksheet>")},
  });
}

XlsxWorkbook::XlsxWorkbook(ZipParts parts) : _parts(std::move(parts)) {
  _main = partOfType({}, QStringLiteral("officeDocument"));
  if (_main.isEmpty()) {
    failDamagedSheet();
  }
  const XmlText main(_parts.read(_main));
  const QHash<QString, Relation> relations = relationsOf(_main);
  const QString from1904 =
      attributeNamed(childNamed(main.root(), "workbookPr"), "date1904").toLower();
  _isFrom1904 = from1904 == u"1" || from1904 == u"true";
  for (pugi::xml_node sheet = childNamed(childNamed(main.root(), "sheets"), "sheet"); sheet;
       sheet = nextNamed(sheet, "sheet")) {
    const Relation relation = relations.value(attributeNamed(sheet, "id"));
    if (relation.type == u"worksheet") {  // and no chart
      _names.append(attributeNamed(sheet, "name"));
      _sheetParts.append(relation.part);
    }
  }
  if (_names.isEmpty()) {
    failDamagedSheet();
  }
  const QByteArray styles = partOfType(_main, QStringLiteral("styles"));
  _formats = styles.isEmpty() ? NumberFormats() : NumberFormats(_parts.read(styles));
}

QHash<QString, XlsxWorkbook::Relation> XlsxWorkbook::relationsOf(const QByteArray& part) const {
  QHash<QString, Relation> relations;
  const QByteArray name = relationsPart(part);
  if (!_parts.has(name)) {
    return relations;
  }
  const XmlText xml(_parts.read(name));
  for (pugi::xml_node relation = childNamed(xml.root(), "Relationship"); relation;
       relation = nextNamed(relation, "Relationship")) {
    relations.insert(attributeNamed(relation, "Id"),
                     {attributeNamed(relation, "Type").section(u'/', -1),
                      resolved(part, attributeNamed(relation, "Target").toUtf8())});
  }
  return relations;
}

// The first part of a type that another one refers to; empty for none.
QByteArray XlsxWorkbook::partOfType(const QByteArray& of, const QString& type) const {
  for (const Relation& relation : relationsOf(of)) {
    if (relation.type == type && _parts.has(relation.part)) {
      return relation.part;
    }
  }
  return {};
}

QStringList XlsxWorkbook::sharedStrings() const {
  const QByteArray part = partOfType(_main, QStringLiteral("sharedStrings"));
  return part.isEmpty() ? QStringList() : readSharedStrings(_parts.read(part));
}

QList<SheetRow> XlsxWorkbook::rows(int sheet) const {
  const XlsxSheet read(_parts.read(_sheetParts.at(sheet)), sharedStrings(), _formats, _isFrom1904);
  return read.rows();
}

QByteArray XlsxWorkbook::edited(int sheet, const QList<RowChange>& changes,
                                const QList<QStringList>& added) const {
  XlsxSheet edit(_parts.read(_sheetParts.at(sheet)), sharedStrings(), _formats, _isFrom1904);
  return _parts.with(_sheetParts.at(sheet), edit.with(changes, added));
}

}  // namespace postwright::workbook
