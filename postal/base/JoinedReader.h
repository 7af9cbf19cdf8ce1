#ifndef POSTWRIGHT_POSTAL_BASE_JOINEDREADER_H_
#define POSTWRIGHT_POSTAL_BASE_JOINEDREADER_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "postal/base/AddressBase.h"
#include "postal/base/BaseReader.h"
#include "postal/base/JoinedBases.h"

namespace postwright::postal {

// Reads several address bases as one: each operation is that of BaseReader, asked of the base that
// has the ZIP code, or that the street is from. One address after the other, in one thread, which
// must not have a second one.
//
// Of a single base it holds a connection all the while. Of several it borrows one for each
// operation: two threads that held one and waited for the other's would wait for good.
class JoinedReader {
 public:
  // `bases` has at least one.
  explicit JoinedReader(const JoinedBases& bases);

  bool HoldsStreetsOf(const std::string& zip);
  bool HoldsAllStreetsOf(const std::string& zip);

  std::optional<int64_t> FindStreet(const std::string& zip, const StreetName& street);
  std::vector<KnownStreet> FindStreets(const std::string& zip, const std::string& key);

  // Returns where streets of those writings are; nullopt where not all bases are in memory.
  std::optional<StreetIndex::Written> FindWritten(const Words& writings);
  std::vector<KnownStreet> FindStreets(const std::string& zip,
                                       const StreetIndex::Written& written) const;

  StreetCache::Streets StreetsOf(const std::string& zip);

  NumberFacts FindNumber(int64_t street, const std::string& number);
  std::vector<KnownRange> RangesOf(int64_t street);
  std::vector<std::string> NumbersOf(int64_t street);
  std::string UnitZip4(int64_t street, const std::string& number, const std::string& unit);

  // Says whether any base has anything of the postal service's own.
  bool KnowsPostal() const { return !bases_.Postal().empty(); }

  // Returns the boxes of that name in the ZIP code (BoxAddress), a street as others.
  std::optional<int64_t> FindBoxes(const std::string& zip, const std::string& name);
  std::string FirmZip4(int64_t street, const std::string& number, const std::string& unit,
                       const std::string& firm);
  std::optional<StreetAlias> FindAlias(const std::string& zip, const StreetName& street,
                                       const std::string& number);
  std::string PreferredCity(const std::string& zip, const std::string& key) const;

  std::string CityName(const std::string& zip, const std::string& key);
  const std::vector<std::string>& CityNames(const std::string& zip) const;
  std::vector<std::string> ZipsOfCity(const std::string& key);

  // Returns the base whose streets of the ZIP code count; where none has any, the one that was
  // asked last.
  const AddressBase& BaseOf(const std::string& zip) const;

 private:
  template <typename Ask>
  auto InBase(size_t place, Ask ask);
  template <typename Answer, typename Ask>
  Answer InZip(const std::string& zip, Answer otherwise, Ask ask);

  const JoinedBases& bases_;
  std::optional<AddressBase::Lease> only_;
  size_t last_ = 0;  // the place of the base that was asked last
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_JOINEDREADER_H_
