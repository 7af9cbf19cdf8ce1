#ifndef POSTWRIGHT_CORE_ENGINE_FIXEDADDRESS_H_
#define POSTWRIGHT_CORE_ENGINE_FIXEDADDRESS_H_

#include <postwright/AddressFields.h>
#include <postwright/AddressMatch.h>
#include <postwright/Export.h>
#include <postwright/FixResult.h>

#include <string>
#include <vector>

namespace postwright {

// What one fix found: the corrected address, or candidates to choose from.
//
//   const std::unique_ptr<FixedAddress> fixed = Postwright::Fix(text, true, &services);
//   Show(fixed->GetExactAddress());  // L"JANE DOE\n12 MAIN ST\nAUSTIN, TX 78701-1234"
//
// A value, never changed once built; read from any thread.
class POSTWRIGHT_CORE_EXPORT FixedAddress {
 public:
  FixedAddress(FixResult result, const AddressFields& exactMatchAddress,
               const std::vector<AddressMatch>& addressMatches);

  FixResult GetResult() const { return result_; }
  // The corrected address; an empty record where only candidates are known.
  const AddressFields& GetExactMatchAddress() const { return exactMatchAddress_; }
  // The candidates in the service's order.
  const std::vector<AddressMatch>& GetAddressMatches() const { return addressMatches_; }

  bool IsExactMatchAddressValid() const { return !exactMatchAddress_.IsEmpty(); }

  // True when there are candidates and the result is one that vouches for them: multiple, exact or
  // default match. Under any other result candidates do not count, however many there are.
  bool IsAddressMatchesValid() const;

  // Returns the address block to offer first: the corrected address; else the first candidate that
  // spans no range, where IsAddressMatchesValid(); else the empty string.
  std::wstring GetDefaultAddress() const;

  // Returns the address block that leaves no choice: the corrected address; else the only
  // candidate, if it spans no range, whatever the result; else the empty string.
  std::wstring GetExactAddress() const;

 private:
  FixResult result_;
  AddressFields exactMatchAddress_;
  std::vector<AddressMatch> addressMatches_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_ENGINE_FIXEDADDRESS_H_
