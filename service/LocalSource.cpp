#include "service/LocalSource.h"

#include <algorithm>
#include <deque>
#include <utility>

#include "postal/base/BaseFile.h"
#include "service/Verifier.h"

namespace postwright::service {
namespace {

// A base, and who decides by it.
struct Region {
  Region(const postal::ZipList& zips, const std::filesystem::path& file, size_t mostInMemory)
      : addresses(file, mostInMemory), verifier(zips, &addresses) {}

  bool HoldsStreetsOf(const std::string& zip) const {
    return addresses.Borrow()->HoldsStreetsOf(zip);
  }

  // Says whether the base itself led to the answer: it has streets where the address was found, or
  // several of them fit.
  bool LedTo(const AddressAnswer& answer) const {
    const auto* const fields = std::get_if<ReplyFields>(&answer);
    return fields != nullptr ? HoldsStreetsOf(fields->zip5)
                             : std::get<postal::Rejection>(answer) == postal::Rejection::Multiple;
  }

  postal::AddressBase addresses;
  Verifier verifier;
};

}  // namespace

struct LocalSource::Loaded {
  Loaded(const std::vector<std::filesystem::path>& files, size_t mostInMemory) : streetless(zips) {
    for (const std::filesystem::path& file : files) {
      if (postal::BaseFile::IsMeant(file)) {
        regions.emplace_back(zips, file, mostInMemory);
      } else {
        zips.Load(file);
      }
    }
  }

  bool IsInMemory() const {
    return std::all_of(regions.begin(), regions.end(),
                       [](const Region& region) { return region.addresses.IsInMemory(); });
  }

  AddressAnswer Decide(const RequestAddress& asked) const {
    if (regions.empty() || asked.call == AddressCall::City) {
      return streetless.Verify(asked).outcome;
    }
    const Region* const usual = regions.size() > 1 ? RegionOf(asked.zip5) : nullptr;
    const Region& first = usual != nullptr ? *usual : regions.front();
    AddressAnswer answer = first.verifier.Verify(asked).outcome;
    return regions.size() == 1 || first.LedTo(answer) ? answer
                                                      : AskOthers(asked, first, std::move(answer));
  }

  // The ZIP code that was sent names the right base as a rule. Where it is missing or wrong, the
  // address may still have been placed in one that a base is for; or a base may find the street
  // where the ZIP list alone cannot place it.
  AddressAnswer AskOthers(const RequestAddress& asked, const Region& first,
                          AddressAnswer answer) const {
    if (const auto* const fields = std::get_if<ReplyFields>(&answer)) {
      const Region* const placed = RegionOf(fields->zip5);
      return placed != nullptr ? placed->verifier.Verify(asked).outcome : answer;
    }
    for (const Region& region : regions) {
      if (&region != &first) {
        AddressAnswer other = region.verifier.Verify(asked).outcome;
        if (region.LedTo(other)) {
          return other;
        }
      }
    }
    return answer;
  }

  // Returns the first base with streets of the ZIP code; nullptr where there is none.
  const Region* RegionOf(const std::string& zip) const {
    const auto found = std::find_if(regions.begin(), regions.end(), [&zip](const Region& region) {
      return region.HoldsStreetsOf(zip);
    });
    return found == regions.end() ? nullptr : &*found;
  }

  postal::ZipList zips;
  const Verifier streetless;
  std::deque<Region> regions;
};

LocalSource::LocalSource(std::vector<std::filesystem::path> files, size_t mostInMemory)
    : files_(std::move(files)),
      mostInMemory_(mostInMemory),
      loaded_(std::make_shared<Loaded>(files_, mostInMemory_)) {}

LocalSource::~LocalSource() = default;

void LocalSource::Reload() {
  auto loaded = std::make_shared<Loaded>(files_, mostInMemory_);
  const std::lock_guard lock(mutex_);
  loaded_.swap(loaded);
}

void LocalSource::TakeFromParent() {
  const std::shared_ptr<Loaded> ofParent = Get();
  if (!ofParent->IsInMemory()) {
    // Kept for good: closing its files would close whatever the child has opened in their place.
    new std::shared_ptr<Loaded>(ofParent);
    Reload();
  }
}

void LocalSource::Find(const RequestAddress& asked, const std::string&, Done done) {
  done(Get()->Decide(asked));
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
