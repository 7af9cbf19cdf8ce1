#include "postal/import/CsvSource.h"

namespace postwright::postal {

CsvSource::CsvSource(const SourceFile& file, std::optional<ColumnMap> map) : rows_(file) {
  bool read = false;
  try {
    read = rows_.Next();
  } catch (const RowError& error) {
    throw SourceError(file.Name() + ": the first line " + error.what());
  }
  if (!read) {
    throw SourceError(file.Name() + ": is empty; the first line must name the columns");
  }
  const std::optional<ColumnMap> known = map ? map : ColumnMap::Recognise(rows_.Cells());
  if (!known) {
    throw SourceError(file.Name() +
                      ": the columns are of no known format; say which is which, such as "
                      "--map number=HOUSENO,street=PREDIR+NAME+TYPE,zip=ZIP");
  }
  map_ = *known;
  if (const std::string missing = map_.Bind(rows_.Cells()); !missing.empty()) {
    throw SourceError(file.Name() + ": the first line names no column '" + missing + "'");
  }
}

bool CsvSource::Next(AddressRow& row) {
  if (!rows_.Next()) {
    return false;
  }
  map_.Read(rows_.Cells(), row);
  return true;
}

}  // namespace postwright::postal
