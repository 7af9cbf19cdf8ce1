#ifndef POSTWRIGHT_CORE_ENGINE_VERIFYREPORT_H_
#define POSTWRIGHT_CORE_ENGINE_VERIFYREPORT_H_

#include <postwright/Export.h>
#include <postwright/FetchReport.h>
#include <postwright/VerifyCandidate.h>
#include <postwright/VerifySource.h>

#include <string>
#include <string_view>
#include <vector>

namespace postwright {

// What a reply of the Verify service says besides the address: whether and how it was confirmed, or
// why it was turned down.
//
//   ReportingServices services;
//   const auto fixed = Postwright::Fix(text, true, &services);
//   const VerifyReport report(services.Reply(), services.Fetch());
//   const CorrectionReview review(text, fixed->GetExactAddress(), report.Footnotes());
//
// A value; read from any thread. Texts are UTF-8 as the service wrote them, and empty where the
// reply does not hold them.
class POSTWRIGHT_CORE_EXPORT VerifyReport {
 public:
  // The report of no reply.
  VerifyReport() = default;

  // Reads the bytes of a reply within the bounds of Postwright::Fix; of a reply that it would
  // refuse nothing is read. `fetch` says how the fetch ended. Throws nothing but std::bad_alloc.
  explicit VerifyReport(std::string_view reply, const FetchReport& fetch = {});

  // How the bytes came, or why none did; FetchOutcomeUnknown where nobody said.
  const FetchReport& Fetch() const { return fetch_; }

  // True where the reply answers the question: with an address or with an error, be it the
  // address's or, as for a wrong account, the whole document's.
  bool IsAnswer() const { return isAnswer_; }

  // True where that is the address's: it was judged. An error of the whole document judges nothing.
  bool IsAboutAddress() const { return isAboutAddress_; }

  // Y confirmed, D confirmed but for a missing unit, S but for an unknown unit, N not confirmed.
  const std::string& DpvConfirmation() const { return dpvConfirmation_; }
  const std::string& DpvFootnotes() const { return dpvFootnotes_; }  // pairs run together, "AABB"
  const std::string& Footnotes() const { return footnotes_; }        // letters run together, "AN"
  const std::string& ReturnText() const { return returnText_; }  // a sentence on a default match

  const std::string& Zip4() const { return zip4_; }
  const std::string& CarrierRoute() const { return carrierRoute_; }
  const std::string& DeliveryPoint() const { return deliveryPoint_; }

  const std::string& ErrorNumber() const { return errorNumber_; }  // "-2147219401", "80040B1A"
  const std::string& ErrorSource() const { return errorSource_; }
  const std::string& ErrorDescription() const { return errorDescription_; }  // trimmed

  // Whose word that is, an address or a refusal; untold where the service was not asked for
  // that (ReportingServices::WantSource) or does not say.
  const VerifySource& Source() const { return source_; }

  // What could have been meant, in the service's order, where it was asked for that and has a
  // choice to offer; with an address or with an error. At most VerifyCandidate::kMost; none that
  // is not whole, or has a field of more than 200 bytes.
  const std::vector<VerifyCandidate>& Candidates() const { return candidates_; }

 private:
  FetchReport fetch_;
  bool isAnswer_ = false;
  bool isAboutAddress_ = false;
  std::string dpvConfirmation_;
  std::string dpvFootnotes_;
  std::string footnotes_;
  std::string returnText_;
  std::string zip4_;
  std::string carrierRoute_;
  std::string deliveryPoint_;
  std::string errorNumber_;
  std::string errorSource_;
  std::string errorDescription_;
  VerifySource source_;
  std::vector<VerifyCandidate> candidates_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_ENGINE_VERIFYREPORT_H_
