#include "postal/base/AddressBase.h"

#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <utility>

#include "postal/base/BaseFile.h"
#include "postal/places/ZipList.h"

namespace postwright::postal {
namespace {

// What tells a file from another of the same name.
std::pair<dev_t, ino_t> IdentityOf(const std::filesystem::path& file) {
  struct stat facts {};
  if (stat(file.c_str(), &facts) != 0) {
    throw ZipListError(file.string() + ": cannot be read");
  }
  return {facts.st_dev, facts.st_ino};
}

}  // namespace

AddressBase::AddressBase(const std::filesystem::path& file, size_t mostInMemory, int64_t place)
    : name_(file.filename().string()) {
  constexpr int kMostTries = 10;
  for (int tries = 1;; ++tries) {
    const auto before = IdentityOf(file);
    Open(file, mostInMemory, place);
    if (IdentityOf(file) == before) {
      for (const BaseReader::Source& source : connections_[0].reader->Sources()) {
        date_ = std::max(date_, source.imported);
      }
      return;
    }
    if (tries == kMostTries) {
      throw ZipListError(file.string() + ": is replaced again and again");
    }
    for (Connection& connection : connections_) {
      connection.reader.reset();  // some of them may be to the newer base
    }
    image_.reset();
  }
}

void AddressBase::Open(const std::filesystem::path& file, size_t mostInMemory, int64_t place) {
  BaseFile::Check(file);
  std::error_code failure;
  const auto changes = std::filesystem::file_size(file.string() + "-wal", failure);
  if (!failure && changes > 0) {
    throw ZipListError(file.string() + ": has changes beside it that would not be seen; 'sqlite3 " +
                       file.string() + " \"PRAGMA wal_checkpoint(TRUNCATE)\"' puts them in");
  }
  if (std::filesystem::file_size(file) <= mostInMemory) {
    image_.emplace(file);
  }
  std::shared_ptr<const BaseReader::Facts> facts;
  const auto streets = std::make_shared<StreetCache>();
  for (Connection& connection : connections_) {
    SqliteFile opened = image_ ? SqliteFile::OpenImage(image_->Bytes(), file.string())
                               : SqliteFile::OpenUnchanging(file);
    if (!facts) {
      facts =
          std::make_shared<BaseReader::Facts>(BaseReader::ReadFacts(opened, image_.has_value()));
    }
    connection.reader = std::make_unique<BaseReader>(std::move(opened), facts, streets, place);
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
