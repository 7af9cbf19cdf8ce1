#include "postal/base/AddressBase.h"

#include <algorithm>
#include <atomic>

#include "postal/base/BaseFile.h"
#include "postal/places/ZipList.h"

namespace postwright::postal {

AddressBase::AddressBase(const std::filesystem::path& file, FileImage::Kind kind, int64_t place,
                         const std::shared_ptr<StreetCache>& streets)
    : name_(file.filename().string()) {
  BaseFile::Check(file);
  std::error_code failure;
  const auto changes = std::filesystem::file_size(file.string() + "-wal", failure);
  if (!failure && changes > 0) {
    throw ZipListError(file.string() + ": has changes beside it that would not be seen; 'sqlite3 " +
                       file.string() + " \"PRAGMA wal_checkpoint(TRUNCATE)\"' puts them in");
  }
  image_.emplace(file, kind);  // all connections are to this one, whatever takes its place
  std::shared_ptr<const BaseReader::Facts> facts;
  for (Connection& connection : connections_) {
    SqliteFile opened = SqliteFile::OpenImage(image_->Bytes(), file.string());
    if (!facts) {
      const bool withStreets = kind == FileImage::Kind::Copied;
      facts = std::make_shared<BaseReader::Facts>(BaseReader::ReadFacts(opened, withStreets));
    }
    connection.reader = std::make_unique<BaseReader>(std::move(opened), facts, streets, place);
  }
  for (const BaseReader::Source& source : connections_[0].reader->Sources()) {
    date_ = std::max(date_, source.imported);
  }
}

// What a connection uses stays in the cache of the processor that its thread runs on.
AddressBase::Lease AddressBase::Borrow() const {
  static std::atomic<size_t> threads = 0;
  thread_local const size_t own = threads++;
  for (size_t i = 0; i < kConnections; ++i) {
    Connection& connection = connections_[(own + i) % kConnections];
    if (std::unique_lock lock(connection.mutex, std::try_to_lock); lock) {
      return {std::move(lock), *connection.reader};
    }
  }
  Connection& connection = connections_[own % kConnections];
  return {std::unique_lock(connection.mutex), *connection.reader};
}

}  // namespace postwright::postal
