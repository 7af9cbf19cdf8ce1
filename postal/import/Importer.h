#ifndef POSTWRIGHT_POSTAL_IMPORT_IMPORTER_H_
#define POSTWRIGHT_POSTAL_IMPORT_IMPORTER_H_

#include <array>
#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "postal/import/BaseBuilder.h"
#include "postal/import/ColumnMap.h"
#include "postal/import/RowSource.h"
#include "postal/import/SourceFile.h"

namespace postwright::postal {

// Takes files of one source into a base.
//
//   Importer importer("texas.base", source, {"travis.csv"}, std::nullopt, zips);
//   importer.Run(stop);
//
// Any number of files, archives and folders of them (FindSourceFiles), of one format or several,
// each larger than memory or not. One thread, but for `stop`.
class Importer {
 public:
  struct Progress {
    size_t file = 0;      // under way, of the files
    double share = 0;     // of all files by their sizes, 0 to 1
    ImportCounts counts;  // so far
  };

  // What the importer tells while it runs; each may be empty.
  struct Listeners {
    std::function<void(const Progress&)> onProgress;  // every few thousand rows
    std::function<void(const std::string& file, int64_t line, const std::string& why)> onLeftOut;
    std::function<void()> onSorting;  // the rows are read
  };

  enum class End { Done, Stopped };

  // Borrows `zips`. Opens every file: throws SourceError for one that cannot be read or is of no
  // known format, ImportError and StoreError as BaseBuilder, before anything is changed.
  Importer(const std::filesystem::path& base, SourceFacts source,
           const std::vector<std::filesystem::path>& paths, std::optional<ColumnMap> map,
           const ZipList& zips, Earlier earlier = Earlier::GoOn);

  // Says whether it goes on with an earlier import.
  bool GoesOn() const { return goesOn_; }

  // Reads the files to their end, sorts, and puts the base in place (BaseBuilder::Finish); where
  // `stop` becomes true in between, keeps what it has and returns. How often a row was left out for
  // which reason is in `faults` as far as this run read.
  End Run(const std::atomic<bool>& stop, const Listeners& listeners);

  const ImportCounts& Counts() const { return builder_->Counts(); }
  const std::array<int64_t, kRowFaults>& Faults() const { return faults_; }
  const SourceFacts& Source() const { return source_; }

 private:
  std::string FormatsOfFiles() const;
  std::string Job() const;
  bool ReadFile(size_t file, const std::atomic<bool>& stop, const Listeners& listeners);
  bool IsWanted(const AddressRow& row) const;
  void ReadRow(RowSource& source, size_t file, AddressRow& row, const Listeners& listeners);
  void LeaveOut(size_t file, int64_t line, RowFault fault, const std::string& why,
                const Listeners& listeners);
  void Tell(size_t file, const RowSource& source, const Listeners& listeners) const;

  SourceFacts source_;
  std::vector<SourceFile> files_;
  std::optional<ColumnMap> map_;
  std::optional<BaseBuilder> builder_;
  std::array<int64_t, kRowFaults> faults_{};
  bool goesOn_ = false;
  bool atEnd_ = false;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_IMPORTER_H_
