#include "service/LocalSource.h"

#include <optional>
#include <utility>

#include "postal/base/AddressBase.h"
#include "postal/base/BaseFile.h"
#include "service/Verifier.h"

namespace postwright::service {

struct LocalSource::Loaded {
  explicit Loaded(const std::vector<std::filesystem::path>& files) {
    for (const std::filesystem::path& file : files) {
      if (!postal::BaseFile::IsSqlite(file)) {
        zips.Load(file);
      } else if (!addresses) {
        addresses.emplace(file, postal::AddressBase::kMostInMemory);
      } else {
        throw postal::ZipListError(
            file.string() + ": is a second address base; import the sources of both into one");
      }
    }
    verifier.emplace(zips, addresses ? &*addresses : nullptr);
  }

  postal::ZipList zips;
  std::optional<postal::AddressBase> addresses;
  std::optional<Verifier> verifier;
};

LocalSource::LocalSource(std::vector<std::filesystem::path> files)
    : files_(std::move(files)), loaded_(std::make_shared<Loaded>(files_)) {}

LocalSource::~LocalSource() = default;

void LocalSource::Reload() {
  auto loaded = std::make_shared<Loaded>(files_);
  const std::lock_guard lock(mutex_);
  loaded_.swap(loaded);
}

void LocalSource::Find(const RequestAddress& asked, const std::string& asker, Done done) {
  Get()->verifier->Find(asked, asker, std::move(done));
}

std::shared_ptr<const postal::ZipList> LocalSource::Zips() const {
  const std::shared_ptr<Loaded> loaded = Get();
  return {loaded, &loaded->zips};
}

std::shared_ptr<LocalSource::Loaded> LocalSource::Get() const {
  const std::lock_guard lock(mutex_);
  return loaded_;
}

}  // namespace postwright::service
