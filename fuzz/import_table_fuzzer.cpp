// Bytes of a source of addresses (CSV with a heading, the National Address Database, GeoJSON, the
// Census Bureau's table, the postal service's records; plain, gzipped or in an archive). Every row
// is read or left out with a reason; reading on from the middle gives the same rows; a house number
// or unit in standard form stays so.

#include <algorithm>

#include "fuzz/InputFile.h"
#include "fuzz/InputText.h"
#include "fuzz/Require.h"
#include "postal/import/RowReader.h"
#include "postal/import/SourceFormats.h"

namespace {

using namespace postwright;
using namespace postwright::postal;
using fuzz::Require;

constexpr std::size_t kMostRows = 2'000;  // an archive may unpack to many times its size

struct ReadRow {
  std::string text;  // all fields, or why it is left out
  RowPlace after;

  bool operator==(const ReadRow& other) const {
    return text == other.text && after.position == other.after.position &&
           after.line == other.after.line;
  }
};

void CheckStandard(const AddressRow& row) {
  static const ZipList zips;
  RowReader reader(zips);
  reader.ReadStreet(row, reader.ReadCity(row).state);
  const std::string number = reader.ReadNumber(row[Field::Number]);
  Require(number.empty() || reader.ReadNumber(number) == number, "a standard number stays so");
  const std::string unit = reader.ReadUnit(row[Field::Unit]);
  Require(reader.ReadUnit(unit) == unit, "a standard unit stays so");
}

std::vector<ReadRow> RowsOf(RowSource& source, std::size_t most) {
  std::vector<ReadRow> rows;
  AddressRow row;
  for (bool goesOn = true; goesOn && rows.size() < most;) {
    std::string text;
    try {
      goesOn = source.Next(row);
      for (std::size_t field = 0; goesOn && field < kFields; ++field) {
        text += row[static_cast<Field>(field)] + '\n';
      }
      if (goesOn) {
        CheckStandard(row);
      }
    } catch (const RowError& error) {
      text = error.what();
    } catch (const SourceError& error) {
      text = error.what();
      goesOn = false;
    }
    if (!text.empty()) {
      rows.push_back({text, source.Place()});
    }
  }
  return rows;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const fuzz::InputFile file(fuzz::TextOf(data, size));
  try {
    const std::unique_ptr<RowSource> source =
        OpenSource(FindSourceFiles(file.Path()).front(), std::nullopt);
    const std::vector<ReadRow> rows = RowsOf(*source, kMostRows);
    if (rows.size() < 2) {
      return 0;
    }
    const std::size_t middle = rows.size() / 2;
    source->GoTo(rows[middle - 1].after);
    const std::vector<ReadRow> again = RowsOf(*source, rows.size() - middle);
    Require(std::equal(again.begin(), again.end(), rows.begin() + static_cast<long>(middle),
                       rows.end()),
            "reading on from the middle gives the same rows");
  } catch (const SourceError& error) {
    Require(error.what()[0] != '\0', "a file that is refused is told why");
  }
  return 0;
}
