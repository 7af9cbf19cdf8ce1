#include "service/LocalSource.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "postal/base/BaseFile.h"
#include "service/Verifier.h"

namespace postwright::service {
namespace {

std::vector<std::filesystem::path> BasesAmong(const std::vector<std::filesystem::path>& files) {
  std::vector<std::filesystem::path> bases;
  std::copy_if(files.begin(), files.end(), std::back_inserter(bases), postal::BaseFile::IsMeant);
  return bases;
}

}  // namespace

struct LocalSource::Loaded {
  Loaded(const std::vector<std::filesystem::path>& files, size_t mostInMemory, size_t mostStreets)
      : bases(BasesAmong(files), mostInMemory, mostStreets), verifier(zips, &bases) {
    for (const std::filesystem::path& file : files) {
      if (!postal::BaseFile::IsMeant(file)) {
        zips.Load(file);
      }
    }
  }

  postal::ZipList zips;
  postal::JoinedBases bases;
  Verifier verifier;
};

LocalSource::LocalSource(std::vector<std::filesystem::path> files, size_t mostInMemory,
                         size_t mostStreets)
    : files_(std::move(files)),
      mostInMemory_(mostInMemory),
      mostStreets_(mostStreets),
      loaded_(std::make_shared<Loaded>(files_, mostInMemory_, mostStreets_)) {}

LocalSource::~LocalSource() = default;

void LocalSource::Reload() {
  auto loaded = std::make_shared<Loaded>(files_, mostInMemory_, mostStreets_);
  const std::lock_guard lock(mutex_);
  loaded_.swap(loaded);
}

void LocalSource::Find(const RequestAddress& asked, const std::string&, Done done) {
  done(Get()->verifier.Verify(asked).outcome);
}

std::shared_ptr<const postal::ZipList> LocalSource::Zips() const {
  const std::shared_ptr<Loaded> loaded = Get();
  return {loaded, &loaded->zips};
}

std::vector<LocalSource::BaseName> LocalSource::Bases() const {
  const std::shared_ptr<Loaded> loaded = Get();
  std::vector<BaseName> names;
  for (size_t i = 0; i < loaded->bases.Size(); ++i) {
    names.push_back({loaded->bases[i].Name(), loaded->bases[i].Date()});
  }
  return names;
}

std::shared_ptr<LocalSource::Loaded> LocalSource::Get() const {
  const std::lock_guard lock(mutex_);
  return loaded_;
}

}  // namespace postwright::service
