#include "tests/service/base/SampleBase.h"

#include <unistd.h>

#include <fstream>

namespace postwright::service {
namespace {

const std::filesystem::path kData = std::filesystem::path(POSTWRIGHT_SOURCE_DIR) / "data";

}  // namespace

BaseFolder::BaseFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "postwright-base-XXXXXX").string();
  path_ = mkdtemp(name.data());
}

BaseFolder::~BaseFolder() {
  std::filesystem::remove_all(path_);
}

std::filesystem::path BaseFolder::Write(const std::string& name, const std::string& text) const {
  std::ofstream(File(name), std::ios::binary) << text;
  return File(name);
}

size_t BaseFolder::CountFiles() const {
  return static_cast<size_t>(std::distance(std::filesystem::directory_iterator(path_), {}));
}

ZipBase SampleZips() {
  ZipBase zips;
  zips.Load(kData / "us-zips.tsv");
  zips.Load(kData / "sample/zips.tsv");
  return zips;
}

ImportCounts Import(const std::filesystem::path& base, const std::string& source,
                    const std::vector<std::filesystem::path>& files, const ZipBase& zips,
                    bool whole) {
  Importer importer(base, {source, "", "", "", whole}, files, std::nullopt, zips);
  importer.Run(false, {});
  return importer.Counts();
}

}  // namespace postwright::service
