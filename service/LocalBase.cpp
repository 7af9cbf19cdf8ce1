#include "service/LocalBase.h"

#include <optional>
#include <utility>

#include "service/Verifier.h"
#include "service/base/AddressBase.h"
#include "service/base/BaseFile.h"

namespace postwright::service {

struct LocalBase::Loaded {
  explicit Loaded(const std::vector<std::filesystem::path>& files) {
    for (const std::filesystem::path& file : files) {
      if (!BaseFile::IsSqlite(file)) {
        zips.Load(file);
      } else if (!addresses) {
        addresses.emplace(file, AddressBase::kMostInMemory);
      } else {
        throw BaseError(file.string() +
                        ": is a second address base; import the sources of both into one");
      }
    }
    verifier.emplace(zips, addresses ? &*addresses : nullptr);
  }

  ZipBase zips;
  std::optional<AddressBase> addresses;
  std::optional<Verifier> verifier;
};

LocalBase::LocalBase(std::vector<std::filesystem::path> files)
    : files_(std::move(files)), loaded_(std::make_shared<Loaded>(files_)) {}

LocalBase::~LocalBase() = default;

void LocalBase::Reload() {
  auto loaded = std::make_shared<Loaded>(files_);
  const std::lock_guard lock(mutex_);
  loaded_.swap(loaded);
}

void LocalBase::Find(const RequestAddress& asked, const std::string& asker, Done done) {
  Get()->verifier->Find(asked, asker, std::move(done));
}

std::shared_ptr<const ZipBase> LocalBase::Zips() const {
  const std::shared_ptr<Loaded> loaded = Get();
  return {loaded, &loaded->zips};
}

std::shared_ptr<LocalBase::Loaded> LocalBase::Get() const {
  const std::lock_guard lock(mutex_);
  return loaded_;
}

}  // namespace postwright::service
