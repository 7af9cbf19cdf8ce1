#include "postal/import/SourceFormats.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>

#include "postal/import/ByteStream.h"
#include "postal/import/CsvSource.h"
#include "postal/import/DbfTable.h"
#include "postal/import/TigerSource.h"

namespace postwright::postal {
namespace {

constexpr size_t kHead = 4096;  // bytes

// Text has no zero byte but in UTF-16, which is marked. A row that is broken may have one: the
// first line is looked at alone.
bool IsText(std::string_view head) {
  return head.starts_with("\xFF\xFE") || head.starts_with("\xFE\xFF") ||
         head.substr(0, head.find('\n')).find('\0') == std::string_view::npos;
}

std::unique_ptr<RowSource> OpenTiger(const std::filesystem::path& file,
                                     const std::optional<ColumnMap>& /*map*/) {
  return std::make_unique<TigerSource>(file);
}

std::unique_ptr<RowSource> OpenCsv(const std::filesystem::path& file,
                                   const std::optional<ColumnMap>& map) {
  return std::make_unique<CsvSource>(file, map);
}

constexpr SourceFormat kFormats[] = {
    {"an archive of TIGER/Line", &ByteStream::IsArchive, &OpenTiger},
    {"the dBASE table in one", &DbfTable::IsLikely, &OpenTiger},
    {"a CSV file", &IsText, &OpenCsv},
};

// Empty also for a file that cannot be read: opening it says why.
std::string HeadOf(const std::filesystem::path& file) {
  std::string head(kHead, '\0');
  std::ifstream stream(file, std::ios::binary);
  stream.read(head.data(), kHead);
  head.resize(static_cast<size_t>(stream.gcount()));
  return head;
}

}  // namespace

std::span<const SourceFormat> SourceFormats() {
  return kFormats;
}

std::unique_ptr<RowSource> OpenSource(const std::filesystem::path& file,
                                      const std::optional<ColumnMap>& map) {
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
  throw SourceError(file.string() + ": is of no kind that can be imported: " + known);
}

}  // namespace postwright::postal
