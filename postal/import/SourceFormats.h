#ifndef POSTWRIGHT_POSTAL_IMPORT_SOURCEFORMATS_H_
#define POSTWRIGHT_POSTAL_IMPORT_SOURCEFORMATS_H_

#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "postal/import/ColumnMap.h"
#include "postal/import/RowSource.h"
#include "postal/import/SourceFile.h"

namespace postwright::postal {

// A kind of file that addresses come in.
struct SourceFormat {
  const char* name;  // for messages: "a CSV file"
  // Says by the first bytes of a file, unpacked, whether it is of this kind.
  bool (*isLikely)(std::string_view head);
  // Opens a file. Throws SourceError.
  std::unique_ptr<RowSource> (*open)(const SourceFile& file, const std::optional<ColumnMap>& map);
};

// Every kind there is; the one that takes any text is the last. A new kind is a line of this table.
std::span<const SourceFormat> SourceFormats();

// Opens a file, whose kind is told by what it holds and not by its name. `map` is for kinds whose
// columns have no fixed names. Throws SourceError for a file that cannot be read or is of no kind.
std::unique_ptr<RowSource> OpenSource(const SourceFile& file, const std::optional<ColumnMap>& map);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_SOURCEFORMATS_H_
