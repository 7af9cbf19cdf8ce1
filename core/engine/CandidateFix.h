#ifndef POSTWRIGHT_CORE_ENGINE_CANDIDATEFIX_H_
#define POSTWRIGHT_CORE_ENGINE_CANDIDATEFIX_H_

#include <postwright/Export.h>
#include <postwright/FixedAddress.h>

#include <memory>
#include <string>

namespace postwright {

class ReportingServices;

// As Postwright::Fix(), for a host that wants candidates: has `services` ask for at most `most`,
// from 1 to VerifyCandidate::kMost. Where the reply names any, whether with an address or with
// the reason why the text was turned down, the result is FixResultMultipleMatch with a match for
// each, in the service's order, the lines above and below the address in them; the exact address is
// the service's, or empty where it gave none.
//
//   ReportingServices services;
//   const auto fixed = FixWithCandidates(text, false, 50, &services);
//   for (const AddressMatch& match : fixed->GetAddressMatches()) {
//     Show(match.GetAddressTemplate(true));  // L"(100 - 198) MAIN ST\nAUSTIN, TX 78701"
//   }
//
// `services` is not null. Runs on one thread at a time, as Postwright::Fix() does, and throws what
// it throws.
POSTWRIGHT_CORE_EXPORT std::unique_ptr<FixedAddress> FixWithCandidates(const std::wstring& text,
                                                                       bool flag, int most,
                                                                       ReportingServices* services);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_ENGINE_CANDIDATEFIX_H_
