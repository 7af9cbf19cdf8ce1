#include "postal/import/Importer.h"

#include <algorithm>

#include "common/SmallText.h"
#include "postal/import/SourceFormats.h"

namespace postwright::postal {
namespace {

constexpr int64_t kRowsATell = 4096;
constexpr int64_t kRowsASave = 65'536;

const char* Describe(RowFault fault) {
  switch (fault) {
    case RowFault::Malformed:
      return "cannot be read";
    case RowFault::NoZip:
      return "has no ZIP code, and its city does not tell one";
    case RowFault::NoStreet:
      return "has no street that can be read";
    case RowFault::NoNumber:
      return "has neither a house number nor a range of them";
    case RowFault::Elsewhere:
      return "is of another state";
    case RowFault::NoRecord:
      return "deletes a record that is not there";
    case RowFault::NoName:
      return "is of an urbanization that no City State file before it names";
  }
  return "";
}

}  // namespace

Importer::Importer(const std::filesystem::path& base, SourceFacts source,
                   const std::vector<std::filesystem::path>& paths, std::optional<ColumnMap> map,
                   const ZipList& zips, Earlier earlier)
    : source_(std::move(source)), map_(std::move(map)) {
  for (const std::filesystem::path& path : paths) {
    const std::vector<SourceFile> found = FindSourceFiles(path);
    files_.insert(files_.end(), found.begin(), found.end());
  }
  source_.format = FormatsOfFiles();
  builder_.emplace(base, source_, Job(), zips, earlier);
  const ImportPlace& place = builder_->Place();
  goesOn_ = place.file > 0 || place.row.position > 0;
}

// A file that has changed is another file: the place in it would mean nothing.
std::string Importer::Job() const {
  constexpr std::string_view kStage = "2\n";  // another one is of a program that gathered otherwise
  std::string job = std::string(kStage) + source_.name + '\n' + source_.licence + '\n' +
                    source_.attribution + '\n' + (source_.whole ? "whole" : "partial") + '\n' +
                    (map_ ? map_->Text() : "");
  for (const std::string& state : source_.states) {
    job += '\n' + state;
  }
  for (const SourceFile& file : files_) {
    job += '\n' + std::filesystem::absolute(file.path).string() + ' ' + file.member + ' ' +
           std::to_string(std::filesystem::file_size(file.path)) + ' ' +
           std::to_string(std::filesystem::last_write_time(file.path).time_since_epoch().count());
  }
  return job;
}

// Each once, in the order of the files, all of which can be opened then.
std::string Importer::FormatsOfFiles() const {
  std::vector<std::string> formats;
  for (const SourceFile& file : files_) {
    const std::string format = OpenSource(file, map_)->Format();
    if (std::find(formats.begin(), formats.end(), format) == formats.end()) {
      formats.push_back(format);
    }
  }
  std::string text;
  for (const std::string& format : formats) {
    text += (text.empty() ? "" : ", ") + format;
  }
  return text;
}

Importer::End Importer::Run(const std::atomic<bool>& stop, const Listeners& listeners) {
  for (auto file = static_cast<size_t>(builder_->Place().file); file < files_.size(); ++file) {
    if (!ReadFile(file, stop, listeners)) {
      return End::Stopped;
    }
  }
  if (listeners.onSorting) {
    listeners.onSorting();
  }
  builder_->Finish();
  return End::Done;
}

bool Importer::ReadFile(size_t file, const std::atomic<bool>& stop, const Listeners& listeners) {
  const std::unique_ptr<RowSource> source = OpenSource(files_[file], map_);
  const ImportPlace& place = builder_->Place();
  if (place.file == static_cast<int64_t>(file) && place.row.position > 0) {
    source->GoTo(place.row);
  }
  AddressRow row;
  atEnd_ = false;
  for (int64_t rows = 1; !atEnd_; ++rows) {
    ReadRow(*source, file, row, listeners);
    if (rows % kRowsATell == 0) {
      Tell(file, *source, listeners);
      if (stop || rows % kRowsASave == 0) {
        builder_->Save({static_cast<int64_t>(file), source->Place()});
      }
      if (stop) {
        return false;
      }
    }
  }
  builder_->Save({static_cast<int64_t>(file) + 1, {}});
  return true;
}

void Importer::ReadRow(RowSource& source, size_t file, AddressRow& row,
                       const Listeners& listeners) {
  try {
    if (!source.Next(row)) {
      atEnd_ = true;
    } else if (!IsWanted(row)) {
      builder_->LeaveOut();
      ++faults_[static_cast<size_t>(RowFault::Elsewhere)];  // told by their number alone
    } else if (const auto fault = builder_->Add(row)) {
      LeaveOut(file, source.Line(), *fault, Describe(*fault), listeners);
    }
  } catch (const RowError& error) {
    builder_->LeaveOut();
    LeaveOut(file, source.Line(), RowFault::Malformed, error.what(), listeners);
  }
}

bool Importer::IsWanted(const AddressRow& row) const {
  return source_.states.empty() ||
         std::any_of(source_.states.begin(), source_.states.end(), [&row](const auto& state) {
           return EqualsIgnoringCase(Trim(row[Field::State]), state);
         });
}

void Importer::LeaveOut(size_t file, int64_t line, RowFault fault, const std::string& why,
                        const Listeners& listeners) {
  ++faults_[static_cast<size_t>(fault)];
  if (listeners.onLeftOut) {
    listeners.onLeftOut(files_[file].Name(), line, why);
  }
}

void Importer::Tell(size_t file, const RowSource& source, const Listeners& listeners) const {
  if (!listeners.onProgress) {
    return;
  }
  double whole = 0;
  double read = 0;
  for (size_t i = 0; i < files_.size(); ++i) {
    whole += files_[i].size;
    read += i < file ? files_[i].size : i == file ? source.Share() * files_[i].size : 0;
  }
  listeners.onProgress({file, read / std::max(whole, 1.0), builder_->Counts()});
}

}  // namespace postwright::postal
