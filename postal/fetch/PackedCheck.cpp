#include "postal/fetch/PackedCheck.h"

#include <memory>

#include "postal/fetch/FetchError.h"
#include "postal/import/ByteStream.h"
#include "postal/import/GzipStream.h"
#include "postal/import/RowSource.h"
#include "postal/import/ZipArchive.h"

namespace postwright::postal {
namespace {

constexpr size_t kPiece = size_t{256} * 1024;

bool LeadsOut(const std::string& name) {
  const std::filesystem::path path(name);
  bool goesUp = path.is_absolute() || name.find('\\') != std::string::npos;
  for (const std::filesystem::path& part : path) {
    goesUp = goesUp || part == "..";
  }
  return goesUp;
}

// Returns the bytes that are left of the bound; throws where there are none.
uint64_t ReadToEnd(ByteStream& stream, uint64_t most, const std::atomic<bool>* stop) {
  std::string piece(kPiece, '\0');
  for (size_t count = 0; (count = stream.Read(piece.data(), piece.size())) > 0;) {
    if (count > most) {
      throw SourceError("unpacks to more than it may");
    }
    most -= count;
    if (stop != nullptr && *stop) {
      throw FetchStopped();
    }
  }
  return most;
}

void ReadArchive(const std::filesystem::path& file, uint64_t most, const std::atomic<bool>* stop) {
  const ZipArchive archive(file);
  if (archive.Members().empty()) {
    throw SourceError("is an archive of nothing");
  }
  for (const ZipArchive::Member& member : archive.Members()) {
    if (LeadsOut(member.name)) {
      throw SourceError("has a file in it whose name leads out of its folder");
    }
    most = ReadToEnd(*archive.Open(member.name), most, stop);
  }
}

}  // namespace

bool IsPacked(std::string_view head, Packing packing) {
  return packing == Packing::Zip ? ZipArchive::IsLikely(head) : GzipStream::IsLikely(head);
}

std::string CheckPacked(const std::filesystem::path& file, Packing packing, uint64_t mostUnpacked,
                        const std::atomic<bool>* stop) {
  try {
    if (packing == Packing::Zip) {
      ReadArchive(file, mostUnpacked, stop);
    } else {
      ReadToEnd(*ByteStream::Open({file}), mostUnpacked, stop);
    }
    return "";
  } catch (const SourceError& error) {
    return error.what();
  }
}

}  // namespace postwright::postal
