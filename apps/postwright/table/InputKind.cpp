#include "apps/postwright/table/InputKind.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <algorithm>

#include "apps/tables/CsvReader.h"
#include "apps/tables/FileError.h"
#include "apps/tables/LabelText.h"
#include "apps/tables/TableGuess.h"
#include "apps/tables/TextFile.h"

namespace postwright {

namespace {

using tables::ColumnRole;

constexpr qsizetype kLookedAt = qsizetype{64} << 10U;
constexpr qsizetype kLeastCells = 3;
constexpr int kManyRows = 2;

bool IsJsonLine(const QByteArray& line, char open, char close) {
  const QByteArray text = line.trimmed();
  return text.size() > 1 && text.startsWith(open) && text.endsWith(close) &&
         QJsonDocument::fromJson('[' + text + ']').array().size() == 1;
}

// A name in quotation marks is not a JSON line, but two of them are.
bool HasJsonLines(const QByteArray& utf8) {
  const QList<QByteArray> lines = utf8.split('\n');
  return IsJsonLine(lines.first(), '{', '}') ||
         (IsJsonLine(lines.first(), '"', '"') && IsJsonLine(lines.value(1), '"', '"'));
}

bool NamesAnAddress(const tables::TableChoice& choice) {
  const QList<ColumnRole>& roles = choice.addresses.first().mapping.roles();
  return choice.isNamed && roles.contains(ColumnRole::Street) &&
         (roles.contains(ColumnRole::City) || roles.contains(ColumnRole::Zip));
}

bool HasZip(const QStringList& cells) {
  static const QRegularExpression zip(QStringLiteral(R"(^\s*\d{5}(-\d{4})?\s*$)"));
  return std::any_of(cells.begin(), cells.end(), [](const QString& cell) {
    return zip.match(cell).hasMatch() || tables::readPlace(cell).has_value();
  });
}

// Rows of as many cells each, two or more of them with a ZIP code.
bool HasRows(const QByteArray& utf8, char delimiter) {
  qsizetype width = 0;
  int zips = 0;
  bool isEven = true;
  tables::CsvReader(delimiter).readRows(utf8, [&](const tables::CsvRow& row) {
    width = width == 0 ? row.cells.size() : width;
    isEven = row.cells.size() == width;
    zips += HasZip(row.cells) ? 1 : 0;
    return isEven && zips < kManyRows;
  });
  return isEven && width >= kLeastCells && zips >= kManyRows;
}

}  // namespace

InputKind KindOf(const std::string& bytes) {
  const QByteArray beginning = tables::beginningAsUtf8(
      QByteArray::fromRawData(bytes.data(), std::min<qsizetype>(bytes.size(), kLookedAt)));
  try {
    const tables::TableChoice choice = tables::guessTable(beginning);
    if (NamesAnAddress(choice)) {
      return InputKind::kTable;
    }
    if (HasJsonLines(beginning)) {
      return InputKind::kJsonLines;
    }
    return HasRows(beginning, choice.delimiter) ? InputKind::kRowsAlone : InputKind::kLabel;
  } catch (const tables::FileError&) {
    return InputKind::kLabel;  // a cell too large to be one: whoever reads it says so
  }
}

}  // namespace postwright
