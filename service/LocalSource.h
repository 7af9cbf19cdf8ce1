#ifndef POSTWRIGHT_SERVICE_LOCALSOURCE_H_
#define POSTWRIGHT_SERVICE_LOCALSOURCE_H_

#include <filesystem>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "postal/base/AddressBase.h"
#include "postal/base/StreetCache.h"
#include "postal/places/ZipList.h"
#include "service/AnswerSource.h"

namespace postwright::service {

// What the service knows by itself, read from files, and read again while it runs.
//
//   LocalSource source({"us-zips.tsv"});
//   VerifyService service(source, nullptr, {});
//   source.Reload();
//
// Any thread may call any operation: whoever has begun with what was loaded before goes on with it.
class LocalSource final : public AnswerSource {
 public:
  // Loads the files in their order: ZIP codes (ZipList) and address bases (JoinedBases). Throws
  // ZipListError or StoreError where one cannot be used. Bases that have no more than
  // `mostInMemory` bytes together are copied into memory, and up to `mostStreets` kept of the
  // streets that are read (StreetCache). A child of the process may go on with the object.
  explicit LocalSource(std::vector<std::filesystem::path> files,
                       size_t mostInMemory = postal::AddressBase::kMostInMemory,
                       size_t mostStreets = postal::StreetCache::kMostStreets);
  ~LocalSource() override;

  // Loads them again. Throws as the constructor; what was loaded before stays in use then.
  void Reload();

  // Answers within the call, as Verifier does.
  void Find(const RequestAddress& asked, const std::string& asker, Done done) override;

  // What tells people a base from another, as AddressBase has it.
  struct BaseName {
    std::string name;
    std::string date;
  };

  // Returns those of the bases that are in use now, in their order.
  std::vector<BaseName> Bases() const;

  // Returns the ZIP codes as they are now; they stay as they are while the pointer is held.
  std::shared_ptr<const postal::ZipList> Zips() const;

 private:
  struct Loaded;

  std::shared_ptr<Loaded> Get() const;

  const std::vector<std::filesystem::path> files_;
  const size_t mostInMemory_;
  const size_t mostStreets_;
  mutable std::mutex mutex_;
  std::shared_ptr<Loaded> loaded_;  // never null
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_LOCALSOURCE_H_
