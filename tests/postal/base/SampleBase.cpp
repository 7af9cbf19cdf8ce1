#include "tests/postal/base/SampleBase.h"

namespace postwright::postal {
namespace {

const std::filesystem::path kData = std::filesystem::path(POSTWRIGHT_SOURCE_DIR) / "data";

}  // namespace

ZipList SampleZips() {
  ZipList zips;
  zips.Load(kData / "us-zips.tsv");
  zips.Load(kData / "sample/zips.tsv");
  return zips;
}

ImportCounts Import(const std::filesystem::path& base, const std::string& source,
                    const std::vector<std::filesystem::path>& files, const ZipList& zips,
                    bool whole) {
  Importer importer(base, {source, "", "", "", whole}, files, std::nullopt, zips);
  importer.Run(false, {});
  return importer.Counts();
}

}  // namespace postwright::postal
