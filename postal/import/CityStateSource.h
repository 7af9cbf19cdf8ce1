#ifndef POSTWRIGHT_POSTAL_IMPORT_CITYSTATESOURCE_H_
#define POSTWRIGHT_POSTAL_IMPORT_CITYSTATESOURCE_H_

#include <string>
#include <string_view>

#include "postal/import/FixedRecords.h"
#include "postal/import/RowSource.h"
#include "postal/import/SourceFile.h"

namespace postwright::postal {

// The postal service's City State product: docs/licensed-data.md has its layout. Names of places
// and other names of streets are rows; what else it has is passed over.
class CityStateSource : public RowSource {
 public:
  static bool IsLikely(std::string_view head);

  explicit CityStateSource(const SourceFile& file);

  bool Next(AddressRow& row) override;
  std::string Format() const override { return "USPS City State"; }
  int64_t Line() const override { return records_.Read(); }
  RowPlace Place() const override { return {records_.Read(), records_.Read() + 1}; }
  void GoTo(const RowPlace& place) override { records_.GoTo(place.position); }
  double Share() const override { return records_.Share(); }

 private:
  void ReadPlace(AddressRow& row) const;
  void ReadAlias(AddressRow& row) const;

  FixedRecords records_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_CITYSTATESOURCE_H_
