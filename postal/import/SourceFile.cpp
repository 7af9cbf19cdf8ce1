#include "postal/import/SourceFile.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <string_view>

#include "common/SmallText.h"
#include "postal/import/RowSource.h"
#include "postal/import/ZipArchive.h"

namespace postwright::postal {
namespace {

constexpr std::string_view kInFolder[] = {".csv",     ".csv.gz",     ".dbf",
                                          ".geojson", ".geojson.gz", ".zip"};

enum class Pick { First, Largest, All };

// What an archive is opened for: the first of these that it has.
struct Kind {
  std::vector<std::string_view> endings;
  Pick pick;
};

const std::array<Kind, 4>& KindsInArchive() {
  static const std::array<Kind, 4> kinds = {{{{".dbf"}, Pick::First},
                                             {{".geojson", ".geojson.gz"}, Pick::All},
                                             {{".csv", ".csv.gz"}, Pick::All},
                                             {{".txt"}, Pick::Largest}}};
  return kinds;
}

bool EndsWith(std::string_view name, std::string_view ending) {
  return name.size() >= ending.size() &&
         EqualsIgnoringCase(name.substr(name.size() - ending.size()), ending);
}

template <typename Endings>
bool EndsWithAny(std::string_view name, const Endings& endings) {
  return std::any_of(std::begin(endings), std::end(endings),
                     [name](std::string_view ending) { return EndsWith(name, ending); });
}

bool IsArchive(const std::filesystem::path& path) {
  std::string head(4, '\0');
  std::ifstream stream(path, std::ios::binary);
  stream.read(head.data(), static_cast<std::streamsize>(head.size()));
  return stream && ZipArchive::IsLikely(head);
}

std::vector<SourceFile> FilesInArchive(const std::filesystem::path& path) {
  const ZipArchive archive(path);
  const auto bySize = [](const SourceFile& a, const SourceFile& b) { return a.size < b.size; };
  for (const Kind& kind : KindsInArchive()) {
    std::vector<SourceFile> files;
    for (const ZipArchive::Member& member : archive.Members()) {
      if (member.size > 0 && EndsWithAny(member.name, kind.endings)) {
        files.push_back({path, member.name, static_cast<double>(member.size)});
      }
    }
    if (files.empty()) {
      continue;
    }
    if (kind.pick == Pick::First) {
      files.resize(1);
    } else if (kind.pick == Pick::Largest) {
      files = {*std::max_element(files.begin(), files.end(), bySize)};
    }
    return files;
  }
  throw SourceError(path.string() +
                    ": holds no file that can be imported: no .dbf, .geojson, .csv or .txt");
}

std::vector<SourceFile> FilesInFolder(const std::filesystem::path& path) {
  std::vector<std::filesystem::path> found;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
    if (entry.is_regular_file() && entry.file_size() > 0 &&
        EndsWithAny(entry.path().string(), kInFolder)) {
      found.push_back(entry.path());
    }
  }
  std::sort(found.begin(), found.end());
  std::vector<SourceFile> files;
  for (const std::filesystem::path& file : found) {
    const std::vector<SourceFile> inside = FindSourceFiles(file);
    files.insert(files.end(), inside.begin(), inside.end());
  }
  if (files.empty()) {
    throw SourceError(path.string() + ": holds no file that can be imported: no .zip, .dbf, " +
                      ".geojson, .geojson.gz, .csv or .csv.gz");
  }
  return files;
}

}  // namespace

std::vector<SourceFile> FindSourceFiles(const std::filesystem::path& path) {
  std::error_code none;
  if (std::filesystem::is_directory(path, none)) {
    return FilesInFolder(path);
  }
  if (std::filesystem::is_regular_file(path, none) && IsArchive(path)) {
    return FilesInArchive(path);
  }
  const auto size = std::filesystem::file_size(path, none);
  return {{path, "", none ? 0.0 : static_cast<double>(size)}};
}

}  // namespace postwright::postal
