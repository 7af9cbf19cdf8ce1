#ifndef POSTWRIGHT_POSTAL_IMPORT_ZIPARCHIVE_H_
#define POSTWRIGHT_POSTAL_IMPORT_ZIPARCHIVE_H_

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "postal/import/ByteStream.h"

struct zip;

namespace postwright::postal {

// A ZIP archive, whose files are read where they are and never unpacked to the disk: a name in it
// is not a path of this machine.
class ZipArchive {
 public:
  struct Member {
    std::string name;
    uint64_t size = 0;  // unpacked, as the archive says
  };

  // Says by the first bytes of a file whether it is an archive.
  static bool IsLikely(std::string_view head);

  // Reads the archive's directory. Throws SourceError for a file that is not an archive or is cut
  // short.
  explicit ZipArchive(const std::filesystem::path& file);

  // In the archive's order.
  const std::vector<Member>& Members() const { return members_; }

  // Opens a member, which holds the archive open as long as it lives. Throws SourceError. At its
  // end its checksum is compared.
  std::unique_ptr<ByteStream> Open(const std::string& member) const;

 private:
  std::string name_;
  std::shared_ptr<zip> archive_;
  std::vector<Member> members_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_ZIPARCHIVE_H_
