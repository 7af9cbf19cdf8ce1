#ifndef POSTWRIGHT_POSTAL_IMPORT_CSVSOURCE_H_
#define POSTWRIGHT_POSTAL_IMPORT_CSVSOURCE_H_

#include <optional>
#include <string>

#include "postal/import/ColumnMap.h"
#include "postal/import/CsvRows.h"
#include "postal/import/RowSource.h"

namespace postwright::postal {

// The addresses of a CSV file whose first row names its columns.
class CsvSource : public RowSource {
 public:
  // Without a map the heading tells what the columns are. Throws SourceError where it does not, and
  // where the map names a column that the heading lacks.
  CsvSource(const SourceFile& file, std::optional<ColumnMap> map);

  bool Next(AddressRow& row) override;
  std::string Format() const override { return map_.Format(); }
  int64_t Line() const override { return rows_.Line(); }
  RowPlace Place() const override { return rows_.Place(); }
  void GoTo(const RowPlace& place) override { rows_.GoTo(place); }
  double Share() const override { return rows_.Share(); }

 private:
  CsvRows rows_;
  ColumnMap map_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_CSVSOURCE_H_
