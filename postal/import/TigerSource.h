#ifndef POSTWRIGHT_POSTAL_IMPORT_TIGERSOURCE_H_
#define POSTWRIGHT_POSTAL_IMPORT_TIGERSOURCE_H_

#include <array>
#include <memory>
#include <optional>
#include <string>

#include "postal/import/DbfTable.h"
#include "postal/import/RowSource.h"
#include "postal/import/SourceFile.h"

namespace postwright::postal {

// The address ranges of a county, as the Census Bureau publishes them in TIGER/Line: the table of
// tl_YEAR_COUNTY_addrfeat.zip, or that table alone. A record is a piece of a street with a range on
// its left and one on its right side, either of which may be missing; each is a row here.
//
// Positions count sides, two for each record. Going on reads what comes before once more, since an
// archive cannot be read from the middle.
class TigerSource : public RowSource {
 public:
  // Throws SourceError for a file that is not such a table.
  explicit TigerSource(SourceFile file);

  bool Next(AddressRow& row) override;
  std::string Format() const override { return "TIGER/Line ADDRFEAT"; }
  int64_t Line() const override { return table_->RecordsRead(); }
  RowPlace Place() const override;
  void GoTo(const RowPlace& place) override;
  double Share() const override;

 private:
  // Where a side has its fields.
  struct Side {
    size_t from, to, zip, parity;
    std::optional<size_t> zip4;
  };

  void Open();
  Side FindSide(char side) const;
  size_t FindField(const std::string& name) const;
  bool Read(const Side& side, AddressRow& row) const;

  SourceFile file_;
  std::unique_ptr<DbfTable> table_;
  size_t name_ = 0;
  std::array<Side, 2> sides_{};
  size_t nextSide_ = 2;  // of the record that was read
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_TIGERSOURCE_H_
