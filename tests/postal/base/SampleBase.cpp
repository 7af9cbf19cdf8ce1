#include "tests/postal/base/SampleBase.h"

#include "postal/store/FileImage.h"

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

std::string Content(const std::string& file) {
  const FileImage image(file, FileImage::Kind::Mapped);
  SqliteFile base = SqliteFile::OpenImage(image.Bytes(), file);
  std::string content;
  for (const char* facts :
       {"SELECT source.name||zip||street.name||number||unit FROM point JOIN street ON "
        "street.id=street JOIN source ON source.id=source ORDER BY 1",
        "SELECT source.name||zip||street.name||low||high FROM number_range JOIN street ON "
        "street.id=street JOIN source ON source.id=source ORDER BY 1",
        "SELECT zip||city.name FROM city ORDER BY 1",
        "SELECT zip||key||preferred FROM city_use ORDER BY 1",
        "SELECT zip||name||of_name FROM alias ORDER BY 1",
        "SELECT name||rows||' '||left_out FROM source ORDER BY 1"}) {
    for (SqliteStatement rows(base, facts); rows.Step();) {
      content += rows.Text(0) + '\n';
    }
  }
  return content;
}

}  // namespace postwright::postal
