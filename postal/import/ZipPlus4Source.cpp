#include "postal/import/ZipPlus4Source.h"

#include "common/AsciiText.h"

namespace postwright::postal {
namespace {

constexpr size_t kLength = 182;
constexpr std::string_view kKinds = "FGHPRS";

// C city, R rural, H highway contract, B boxes, G general delivery.
bool IsRoute(std::string_view text) {
  constexpr std::string_view kRoutes = "CRHBG";
  constexpr size_t kRouteLength = 4;
  return text.size() == kRouteLength && kRoutes.find(text[0]) != std::string_view::npos &&
         AllDigits(text.substr(1));
}

}  // namespace

bool ZipPlus4Source::IsLikely(std::string_view head) {
  return FixedRecords::IsLikely(head, kLength, "D");
}

ZipPlus4Source::ZipPlus4Source(const SourceFile& file) : records_(file, kLength) {}

bool ZipPlus4Source::Next(AddressRow& row) {
  do {
    if (!records_.Next()) {
      return false;
    }
  } while (records_.Field(0, 1) == "C");
  if (records_.Field(0, 1) != "D") {
    throw RowError("is not a detail record");
  }
  row.Clear();
  row.postal.key = records_.Field(6, 10);
  const std::string_view action = records_.Field(16, 1);
  if (action == "D") {
    row.postal.kind = PostalRecord::Kind::Deletion;
  } else if (action == "A") {
    ReadAddress(row);
  } else {
    throw RowError("neither adds nor deletes");
  }
  return true;
}

void ZipPlus4Source::ReadAddress(AddressRow& row) const {
  const std::string_view kind = records_.Field(17, 1);
  if (kind.empty() || kKinds.find(kind[0]) == std::string_view::npos) {
    throw RowError("is of a kind that is not known: '" + std::string(kind) + "'");
  }
  if (records_.Field(149, 1) == "L") {
    throw RowError("was converted to another address (LACS)");
  }
  row.postal.kind = static_cast<PostalRecord::Kind>(kind[0]);
  row[Field::Zip] = records_.Field(1, 5);
  row[Field::State] = records_.Field(157, 2);
  row[Field::Street] = records_.StreetField(22);
  row[Field::Low] = records_.NumberField(58, 10);
  row[Field::High] = records_.NumberField(68, 10);
  row[Field::Parity] = records_.Field(78, 1);
  row[Field::Unit] = records_.Field(119, 4);
  if (const std::string_view route = records_.Field(18, 4); IsRoute(route)) {
    row.postal.route = route;
  }
  row.postal.urbanization = records_.Field(170, 6);
  row.postal.lastLine = records_.Field(176, 6);
  row.postal.firm = records_.Field(79, 40);
  row.postal.unitLow = records_.NumberField(123, 8);
  row.postal.unitHigh = records_.NumberField(131, 8);
  row.postal.unitParity = records_.Field(139, 1);
  // Of several add-ons nothing says which is whose; ND in the place of one means "no delivery".
  const std::string_view addOn = records_.Field(140, 4);
  if (addOn.size() == 4 && AllDigits(addOn) && addOn == records_.Field(144, 4)) {
    row[Field::Zip4] = addOn;
  }
}

}  // namespace postwright::postal
