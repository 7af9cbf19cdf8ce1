#ifndef POSTWRIGHT_SERVICE_VERIFIER_H_
#define POSTWRIGHT_SERVICE_VERIFIER_H_

#include "postal/base/AddressMatcher.h"
#include "postal/base/Explanation.h"
#include "postal/base/JoinedBases.h"
#include "postal/base/JoinedReader.h"
#include "postal/places/ZipList.h"
#include "service/AnswerSource.h"
#include "service/protocol/VerifyReply.h"
#include "service/protocol/VerifyRequest.h"

namespace postwright::service {

// Decides on one address: places it, standardises it, or turns it down.
//
//   const Verifier verifier(zips);
//   const ReplyAddress reply = verifier.Verify(request.addresses[0]);
//
// What a parser without a list of cities has cut wrongly is cut again (LineCutter), then city,
// state and ZIP are checked against one another (LastLineChecker), the delivery line is brought
// into its standard form (Standardiser). Without an address base no streets are known: an address
// that is placed is answered as not confirmed (DPVConfirmation N). With one, AddressMatcher
// confirms and corrects it. A ZIP+4 add-on that was asked for is given back where no source has
// another and neither street, number nor ZIP code is found wrong. Candidates are named to those who
// ask for them, as far as an address base knows any. The city of a ZIP code is the ZIP list's.
//
// Borrows both. Any thread may call Verify.
class Verifier final : public AnswerSource {
 public:
  // `addresses` may be null, or none.
  explicit Verifier(const postal::ZipList& zips, const postal::JoinedBases* addresses = nullptr)
      : zips_(zips), addresses_(addresses) {}

  ReplyAddress Verify(const RequestAddress& asked) const;

  // The same, and how it was decided, step by step.
  ReplyAddress Explain(const RequestAddress& asked, postal::Explanation& explanation) const;

  // Answers within the call.
  void Find(const RequestAddress& asked, const std::string& asker, Done done) override;

 private:
  struct FoldedAddress;

  // What a decision may use and tell; each may be null.
  struct Help {
    postal::JoinedReader* reader;
    postal::Explanation* explanation;
    postal::CandidateFinder* candidates;
  };

  AddressAnswer Decide(const RequestAddress& sent, postal::Explanation* explanation) const;
  AddressAnswer DecideCity(const RequestAddress& asked) const;
  static ReplySource SourceOf(const AddressAnswer& answer, const std::string& zip,
                              const postal::JoinedReader* reader);
  AddressAnswer DecideWhole(const RequestAddress& sent, const postal::DeliveryLines& sentLines,
                            const FoldedAddress& asked, const Help& help) const;
  postal::AddressMatcher::Answer MatchStreet(const postal::AddressQuestion& question,
                                             const Help& help) const;

  const postal::ZipList& zips_;
  const postal::JoinedBases* addresses_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_VERIFIER_H_
