#include "service/base/AddressBase.h"

#include <sys/stat.h>

#include <utility>

#include "service/address/ZipBase.h"
#include "service/base/BaseFile.h"

namespace postwright::service {
namespace {

// What tells a file from another of the same name.
std::pair<dev_t, ino_t> IdentityOf(const std::filesystem::path& file) {
  struct stat facts {};
  if (stat(file.c_str(), &facts) != 0) {
    throw BaseError(file.string() + ": cannot be read");
  }
  return {facts.st_dev, facts.st_ino};
}

}  // namespace

AddressBase::AddressBase(const std::filesystem::path& file, size_t mostInMemory) {
  constexpr int kMostTries = 10;
  for (int tries = 1;; ++tries) {
    const auto before = IdentityOf(file);
    Open(file, mostInMemory);
    if (IdentityOf(file) == before) {
      return;
    }
    if (tries == kMostTries) {
      throw BaseError(file.string() + ": is replaced again and again");
    }
    idle_.clear();  // some of them may be to the newer base
    image_.reset();
  }
}

void AddressBase::Open(const std::filesystem::path& file, size_t mostInMemory) {
  BaseFile::Check(file);
  std::error_code failure;
  const auto changes = std::filesystem::file_size(file.string() + "-wal", failure);
  if (!failure && changes > 0) {
    throw BaseError(file.string() + ": has changes beside it that would not be seen; 'sqlite3 " +
                    file.string() + " \"PRAGMA wal_checkpoint(TRUNCATE)\"' puts them in");
  }
  if (std::filesystem::file_size(file) <= mostInMemory) {
    image_.emplace(file);
  }
  std::shared_ptr<const BaseReader::Facts> facts;
  while (idle_.size() < kConnections) {
    SqliteFile opened = image_ ? SqliteFile::OpenImage(image_->Bytes(), file.string())
                               : SqliteFile::OpenUnchanging(file);
    if (!facts) {
      facts = std::make_shared<BaseReader::Facts>(BaseReader::ReadFacts(opened));
    }
    idle_.push_back(std::make_unique<BaseReader>(std::move(opened), facts));
  }
}

AddressBase::Lease AddressBase::Borrow() const {
  std::unique_lock lock(mutex_);
  returned_.wait(lock, [this] { return !idle_.empty(); });
  std::unique_ptr<BaseReader> reader = std::move(idle_.back());
  idle_.pop_back();
  return {*this, std::move(reader)};
}

AddressBase::Lease::~Lease() {
  {
    const std::lock_guard lock(base_.mutex_);
    base_.idle_.push_back(std::move(reader_));
  }
  base_.returned_.notify_one();
}

}  // namespace postwright::service
