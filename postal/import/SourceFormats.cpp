#include "postal/import/SourceFormats.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "postal/import/ByteStream.h"
#include "postal/import/CityStateSource.h"
#include "postal/import/CsvSource.h"
#include "postal/import/DbfTable.h"
#include "postal/import/GeoJsonSource.h"
#include "postal/import/TigerSource.h"
#include "postal/import/ZipPlus4Source.h"

namespace postwright::postal {
namespace {

constexpr size_t kHead = 4096;  // bytes

// Text has no zero byte but in UTF-16, which is marked. A row that is broken may have one: the
// first line is looked at alone.
bool IsText(std::string_view head) {
  return head.starts_with("\xFF\xFE") || head.starts_with("\xFE\xFF") ||
         head.substr(0, head.find('\n')).find('\0') == std::string_view::npos;
}

std::unique_ptr<RowSource> OpenTiger(const SourceFile& file,
                                     const std::optional<ColumnMap>& /*map*/) {
  return std::make_unique<TigerSource>(file);
}

std::unique_ptr<RowSource> OpenGeoJson(const SourceFile& file,
                                       const std::optional<ColumnMap>& /*map*/) {
  return std::make_unique<GeoJsonSource>(file);
}

std::unique_ptr<RowSource> OpenCsv(const SourceFile& file, const std::optional<ColumnMap>& map) {
  return std::make_unique<CsvSource>(file, map);
}

std::unique_ptr<RowSource> OpenZipPlus4(const SourceFile& file,
                                        const std::optional<ColumnMap>& /*map*/) {
  return std::make_unique<ZipPlus4Source>(file);
}

std::unique_ptr<RowSource> OpenCityState(const SourceFile& file,
                                         const std::optional<ColumnMap>& /*map*/) {
  return std::make_unique<CityStateSource>(file);
}

constexpr SourceFormat kFormats[] = {
    {"the dBASE table of TIGER/Line", &DbfTable::IsLikely, &OpenTiger},
    {"GeoJSON with a feature a line", &GeoJsonSource::IsLikely, &OpenGeoJson},
    {"the postal service's ZIP+4 records", &ZipPlus4Source::IsLikely, &OpenZipPlus4},
    {"its City State records", &CityStateSource::IsLikely, &OpenCityState},
    {"a CSV file", &IsText, &OpenCsv},
};

std::string HeadOf(const SourceFile& file) {
  std::string head(kHead, '\0');
  head.resize(ByteStream::Open(file)->Read(head.data(), kHead));
  return head;
}

}  // namespace

std::span<const SourceFormat> SourceFormats() {
  return kFormats;
}

std::unique_ptr<RowSource> OpenSource(const SourceFile& file, const std::optional<ColumnMap>& map) {
  const std::string head = HeadOf(file);
  const auto* const format = std::ranges::find_if(
      kFormats, [&head](const SourceFormat& candidate) { return candidate.isLikely(head); });
  if (format != std::end(kFormats)) {
    return format->open(file, map);
  }
  std::string known;
  for (const SourceFormat& candidate : kFormats) {
    known += (known.empty() ? "" : ", ") + std::string(candidate.name);
  }
  throw SourceError(file.Name() + ": is of no kind that can be imported: " + known);
}

}  // namespace postwright::postal
