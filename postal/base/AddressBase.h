#ifndef POSTWRIGHT_POSTAL_BASE_ADDRESSBASE_H_
#define POSTWRIGHT_POSTAL_BASE_ADDRESSBASE_H_

#include <array>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "postal/base/BaseReader.h"
#include "postal/store/FileImage.h"

namespace postwright::postal {

// An address base: which streets and house numbers there are. postwright-base makes it.
//
//   const AddressBase base("texas.base");
//   const AddressBase::Lease reader = base.Borrow();
//   reader->FindStreets("78701", StreetKey("MAIN"));
//
// Any thread may borrow, each a connection of its own. A base that is replaced by a newer one
// (postwright-base import) stays readable as it was for as long as the object lives.
class AddressBase {
 public:
  // Bytes of all bases together that a service copies into memory.
  static constexpr size_t kMostInMemory = size_t{128} * 1024 * 1024;

  // Opens the file. Throws ZipListError where it is not a finished base of this version, or was
  // changed in place by a program that has not closed it properly, and StoreError where it cannot
  // be read.
  //
  // The connections share one image of it. One that is copied has an index of its streets besides
  // and answers faster; one that is mapped is there at once. `place` is its own among those
  // that are asked together (JoinedBases), which keep what they read of streets in `streets`.
  explicit AddressBase(
      const std::filesystem::path& file, FileImage::Kind kind = FileImage::Kind::Mapped,
      int64_t place = 0,
      const std::shared_ptr<StreetCache>& streets = std::make_shared<StreetCache>());

  // What tells people this base from another: the file's name, "texas.base", and the day, as in
  // "2026-11-20", on which the newest of its sources was imported.
  const std::string& Name() const { return name_; }
  const std::string& Date() const { return date_; }

  class Lease;

  // Lends a connection to the calling thread until the lease ends, which must be before the base
  // does: the same one as the last time, where that is free. Waits for it while all are lent; a
  // thread must not ask for a second.
  Lease Borrow() const;

 private:
  static constexpr size_t kConnections = 8;  // as many as the server has threads at most

  // Two of them share no cache line.
  struct alignas(64) Connection {
    std::mutex mutex;  // held while it is lent
    std::unique_ptr<BaseReader> reader;
  };

  std::string name_;
  std::string date_;
  std::optional<FileImage> image_;
  mutable std::array<Connection, kConnections> connections_;
};

class AddressBase::Lease {
 public:
  BaseReader& operator*() const { return *reader_; }
  BaseReader* operator->() const { return reader_; }

 private:
  friend class AddressBase;
  Lease(std::unique_lock<std::mutex> lock, BaseReader& reader)
      : lock_(std::move(lock)), reader_(&reader) {}

  std::unique_lock<std::mutex> lock_;
  BaseReader* reader_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_ADDRESSBASE_H_
