#ifndef POSTWRIGHT_POSTAL_FETCH_FILEFETCH_H_
#define POSTWRIGHT_POSTAL_FETCH_FILEFETCH_H_

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

#include "postal/fetch/PackedCheck.h"
#include "postal/fetch/SiteClient.h"

namespace postwright::postal {

class FilePart;

// A file on a server.
struct RemoteFile {
  std::string url;
  std::string name;   // under which it is kept
  std::string stamp;  // what the server's list says of its age and size; empty: nothing
};

// What files of a kind are like.
struct FileBounds {
  Packing packing = Packing::Zip;
  uint64_t bytes = 0;     // of a file at most,
  uint64_t unpacked = 0;  // and of what is packed in it
};

// Fetches a file into a folder, unless it is there.
//
// It is there under its name once it is whole and was checked; until then it is NAME.part, beside
// which NAME.part-of says which version that is. What was begun goes on after its last byte (RFC
// 9110, section 14) if the server still has that version, and otherwise from the beginning.
//
// `onBytes` is told how many bytes there are and how many there will be, 0 where the server does
// not say it. Throws FetchError and FetchStopped; what came is kept then.
void FetchFile(SiteClient& client, const FetchManners& manners, const RemoteFile& file,
               const std::filesystem::path& folder, const FileBounds& bounds,
               const std::function<void(uint64_t bytes, uint64_t whole)>& onBytes);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_FETCH_FILEFETCH_H_
