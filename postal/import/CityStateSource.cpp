#include "postal/import/CityStateSource.h"

namespace postwright::postal {
namespace {

constexpr size_t kLength = 129;
constexpr std::string_view kUrbanization = "U";

}  // namespace

bool CityStateSource::IsLikely(std::string_view head) {
  return FixedRecords::IsLikely(head, kLength, "ADNSZ");
}

CityStateSource::CityStateSource(const SourceFile& file) : records_(file, kLength) {}

bool CityStateSource::Next(AddressRow& row) {
  while (records_.Next()) {
    row.Clear();
    const std::string_view kind = records_.Field(0, 1);
    if (kind == "D") {
      ReadPlace(row);
      return true;
    }
    if (kind == "A") {
      ReadAlias(row);
      return true;
    }
  }
  return false;
}

void CityStateSource::ReadPlace(AddressRow& row) const {
  row.postal.kind = records_.Field(54, 1) == kUrbanization ? PostalRecord::Kind::Urbanization
                                                           : PostalRecord::Kind::Place;
  row.postal.key = records_.Field(6, 6);
  row[Field::Zip] = records_.Field(1, 5);
  row[Field::City] = records_.Field(13, 28);
  row[Field::State] = records_.Field(99, 2);
  row.postal.isUsable = records_.Field(55, 1) == "Y";
  row.postal.other = records_.Field(62, 28);
}

void CityStateSource::ReadAlias(AddressRow& row) const {
  row.postal.kind = PostalRecord::Kind::Alias;
  row[Field::Zip] = records_.Field(1, 5);
  row[Field::Street] = records_.StreetField(6);
  row.postal.other = records_.StreetField(42);
  row.postal.isUsable = records_.Field(78, 1) == "P";
  row[Field::Low] = records_.NumberField(87, 10);
  row[Field::High] = records_.NumberField(97, 10);
  row[Field::Parity] = records_.Field(107, 1);
}

}  // namespace postwright::postal
