#include "postal/base/JoinedReader.h"

#include <algorithm>

#include "postal/base/BoxAddress.h"
#include "postal/places/CityName.h"

namespace postwright::postal {

JoinedReader::JoinedReader(const JoinedBases& bases) : bases_(bases) {
  if (bases.Size() == 1) {
    only_.emplace(bases[0].Borrow());
  }
}

template <typename Ask>
auto JoinedReader::InBase(size_t place, Ask ask) {
  if (only_) {
    return ask(**only_);
  }
  last_ = place;
  const AddressBase::Lease reader = bases_[place].Borrow();
  return ask(*reader);
}

template <typename Answer, typename Ask>
Answer JoinedReader::InZip(const std::string& zip, Answer otherwise, Ask ask) {
  const size_t place = only_ ? 0 : bases_.PlaceOf(zip);
  return place == JoinedBases::kNone ? otherwise : InBase(place, ask);
}

bool JoinedReader::HoldsStreetsOf(const std::string& zip) {
  return only_ ? (*only_)->HoldsStreetsOf(zip) : bases_.PlaceOf(zip) != JoinedBases::kNone;
}

bool JoinedReader::HoldsAllStreetsOf(const std::string& zip) {
  return InZip(zip, false, [&](BaseReader& reader) { return reader.HoldsAllStreetsOf(zip); });
}

std::optional<int64_t> JoinedReader::FindStreet(const std::string& zip, const StreetName& street) {
  return InZip(zip, std::optional<int64_t>(),
               [&](BaseReader& reader) { return reader.FindStreet(zip, street); });
}

std::vector<KnownStreet> JoinedReader::FindStreets(const std::string& zip, const std::string& key) {
  return InZip(zip, std::vector<KnownStreet>(),
               [&](BaseReader& reader) { return reader.FindStreets(zip, key); });
}

std::optional<StreetIndex::Written> JoinedReader::FindWritten(const Words& writings) {
  if (only_) {
    return (*only_)->FindWritten(writings);
  }
  if (!bases_.IsInMemory()) {
    return std::nullopt;
  }
  StreetIndex::Written written;
  for (size_t place = 0; place < bases_.Size(); ++place) {
    written.Add(*bases_[place].Borrow()->FindWritten(writings));
  }
  return written;
}

std::vector<KnownStreet> JoinedReader::FindStreets(const std::string& zip,
                                                   const StreetIndex::Written& written) const {
  std::vector<KnownStreet> streets = written.In(zip);
  if (!only_) {
    std::erase_if(streets, [counts = bases_.PlaceOf(zip)](const KnownStreet& street) {
      return BaseReader::PlaceOf(street.id) != counts;
    });
  }
  return streets;
}

StreetCache::Streets JoinedReader::StreetsOf(const std::string& zip) {
  static const auto kNone = std::make_shared<const ZipStreets>();
  return InZip(zip, kNone, [&](BaseReader& reader) { return reader.StreetsOf(zip); });
}

NumberFacts JoinedReader::FindNumber(int64_t street, const std::string& number) {
  return InBase(BaseReader::PlaceOf(street),
                [&](BaseReader& reader) { return reader.FindNumber(street, number); });
}

std::vector<KnownRange> JoinedReader::RangesOf(int64_t street) {
  return InBase(BaseReader::PlaceOf(street),
                [&](BaseReader& reader) { return reader.RangesOf(street); });
}

std::vector<std::string> JoinedReader::NumbersOf(int64_t street) {
  return InBase(BaseReader::PlaceOf(street),
                [&](BaseReader& reader) { return reader.NumbersOf(street); });
}

std::string JoinedReader::UnitZip4(int64_t street, const std::string& number,
                                   const std::string& unit) {
  return InBase(BaseReader::PlaceOf(street),
                [&](BaseReader& reader) { return reader.UnitZip4(street, number, unit); });
}

std::optional<int64_t> JoinedReader::FindBoxes(const std::string& zip, const std::string& name) {
  StreetName street;
  street.name = name;
  return InZip(zip, std::optional<int64_t>(), [&](BaseReader& reader) {
    return reader.FindStreet(BoxAddress::ZipOf(zip), street);
  });
}

std::string JoinedReader::FirmZip4(int64_t street, const std::string& number,
                                   const std::string& unit, const std::string& firm) {
  return InBase(BaseReader::PlaceOf(street),
                [&](BaseReader& reader) { return reader.FirmZip4(street, number, unit, firm); });
}

// The names may be in a base of their own.
std::optional<StreetAlias> JoinedReader::FindAlias(const std::string& zip, const StreetName& street,
                                                   const std::string& number) {
  std::optional<StreetAlias> alias;
  for (const size_t place : bases_.Postal()) {
    if (!alias) {
      alias =
          InBase(place, [&](BaseReader& reader) { return reader.FindAlias(zip, street, number); });
    }
  }
  return alias;
}

std::string JoinedReader::PreferredCity(const std::string& zip, const std::string& key) const {
  return only_ ? (*only_)->PreferredCity(zip, key) : bases_.PreferredCity(zip, key);
}

std::string JoinedReader::CityName(const std::string& zip, const std::string& key) {
  if (only_) {
    return (*only_)->CityName(zip, key);
  }
  const std::vector<std::string>& names = bases_.CityNames(zip);
  const auto found = std::find_if(names.begin(), names.end(),
                                  [&key](const std::string& name) { return CityKey(name) == key; });
  return found == names.end() ? std::string() : *found;
}

const std::vector<std::string>& JoinedReader::CityNames(const std::string& zip) const {
  return only_ ? (*only_)->CityNames(zip) : bases_.CityNames(zip);
}

std::vector<std::string> JoinedReader::ZipsOfCity(const std::string& key) {
  return only_ ? (*only_)->ZipsOfCity(key) : bases_.ZipsOfCity(key);
}

const AddressBase& JoinedReader::BaseOf(const std::string& zip) const {
  const size_t place = only_ ? 0 : bases_.PlaceOf(zip);
  return bases_[place == JoinedBases::kNone ? last_ : place];
}

}  // namespace postwright::postal
