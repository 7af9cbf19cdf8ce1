#ifndef POSTWRIGHT_POSTAL_IMPORT_ZIPPLUS4SOURCE_H_
#define POSTWRIGHT_POSTAL_IMPORT_ZIPPLUS4SOURCE_H_

#include <string>
#include <string_view>

#include "postal/import/FixedRecords.h"
#include "postal/import/RowSource.h"
#include "postal/import/SourceFile.h"

namespace postwright::postal {

// The postal service's ZIP+4 product, or the changes to it: docs/licensed-data.md has its layout. A
// record that adds is a row, one that deletes is the deletion of the row with its update key.
class ZipPlus4Source : public RowSource {
 public:
  static bool IsLikely(std::string_view head);

  explicit ZipPlus4Source(const SourceFile& file);

  bool Next(AddressRow& row) override;
  std::string Format() const override { return "USPS ZIP+4"; }
  int64_t Line() const override { return records_.Read(); }
  RowPlace Place() const override { return {records_.Read(), records_.Read() + 1}; }
  void GoTo(const RowPlace& place) override { records_.GoTo(place.position); }
  double Share() const override { return records_.Share(); }

 private:
  void ReadAddress(AddressRow& row) const;

  FixedRecords records_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_ZIPPLUS4SOURCE_H_
