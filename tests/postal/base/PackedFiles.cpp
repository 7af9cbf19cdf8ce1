#include "tests/postal/base/PackedFiles.h"

#include <zip.h>
#include <zlib.h>

namespace postwright::postal {

std::string Gzipped(const std::string& bytes) {
  z_stream packer{};
  deflateInit2(&packer, Z_DEFAULT_COMPRESSION, Z_DEFLATED, MAX_WBITS + 16, 8, Z_DEFAULT_STRATEGY);
  std::string packed(deflateBound(&packer, bytes.size()), '\0');
  std::string input = bytes;
  packer.next_in = reinterpret_cast<Bytef*>(input.data());
  packer.avail_in = static_cast<uInt>(input.size());
  packer.next_out = reinterpret_cast<Bytef*>(packed.data());
  packer.avail_out = static_cast<uInt>(packed.size());
  deflate(&packer, Z_FINISH);
  packed.resize(packer.total_out);
  deflateEnd(&packer);
  return packed;
}

std::string WriteZip(const TempFolder& folder, const std::string& name,
                     const std::vector<std::pair<std::string, std::string>>& members) {
  const std::string path = folder.File(name);
  zip_t* const archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
  for (const auto& [member, content] : members) {
    zip_file_add(archive, member.c_str(),
                 zip_source_buffer(archive, content.data(), content.size(), 0), 0);
  }
  zip_close(archive);
  return path;
}

}  // namespace postwright::postal
