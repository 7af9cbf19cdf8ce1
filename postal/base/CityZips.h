#ifndef POSTWRIGHT_POSTAL_BASE_CITYZIPS_H_
#define POSTWRIGHT_POSTAL_BASE_CITYZIPS_H_

#include <string>
#include <vector>

#include "postal/base/JoinedReader.h"
#include "postal/places/LastLine.h"
#include "postal/places/ZipList.h"

namespace postwright::postal {

// Which ZIP codes a city has, by the list of them and by the sources of a base. Borrows both. One
// thread.
class CityZips {
 public:
  CityZips(const ZipList& zips, JoinedReader& reader) : zips_(zips), reader_(reader) {}

  // Returns the ZIP codes in ascending order; empty for a name that is not known in the state.
  std::vector<std::string> ZipsOf(const std::string& city, const std::string& state);

  // Returns those of the city of `placed` but its own.
  std::vector<std::string> OtherZipsOf(const PlacedLine& placed);

  // Says whether the city is a name of the ZIP code.
  bool IsNameOfPlace(const PlacedLine& placed);

 private:
  const ZipList& zips_;
  JoinedReader& reader_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_CITYZIPS_H_
