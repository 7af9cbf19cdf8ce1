#ifndef POSTWRIGHT_POSTAL_IMPORT_GEOJSONSOURCE_H_
#define POSTWRIGHT_POSTAL_IMPORT_GEOJSONSOURCE_H_

#include <memory>
#include <string>
#include <string_view>

#include "postal/import/ByteReader.h"
#include "postal/import/RowSource.h"

namespace postwright::postal {

// The addresses of a file as OpenAddresses publishes them: GeoJSON (RFC 7946), a feature a line,
// whose properties are `hash number street unit city district region postcode id`. Properties may
// be numbers; anything that is neither text nor a number counts as none. Positions are bytes.
//
// Memory is that of one line: a longer one is left out, and so is one with deeper nesting than any
// address has.
class GeoJsonSource : public RowSource {
 public:
  static constexpr size_t kLongestLine = size_t{64} * 1024;  // bytes
  static constexpr size_t kMostLevels = 64;  // of objects and arrays inside one another

  // Says by the first bytes of a file whether it is likely to be one.
  static bool IsLikely(std::string_view head);

  // Throws SourceError for a file whose first line is not a feature.
  explicit GeoJsonSource(const SourceFile& file);
  ~GeoJsonSource() override;

  bool Next(AddressRow& row) override;
  std::string Format() const override { return "OpenAddresses GeoJSON"; }
  int64_t Line() const override { return line_; }
  RowPlace Place() const override { return {bytes_.Position(), line_ + 1}; }
  void GoTo(const RowPlace& place) override;
  double Share() const override { return bytes_.Share(); }

 private:
  struct Json;

  bool ReadLine();
  void ReadFeature(AddressRow& row);

  ByteReader bytes_;
  std::unique_ptr<Json> json_;
  std::string text_;  // of the line that was read last
  int64_t line_ = 0;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_GEOJSONSOURCE_H_
