#ifndef POSTWRIGHT_SERVICE_VERIFIER_H_
#define POSTWRIGHT_SERVICE_VERIFIER_H_

#include "service/AnswerSource.h"
#include "service/address/ZipBase.h"
#include "service/protocol/VerifyReply.h"
#include "service/protocol/VerifyRequest.h"

namespace postwright::service {

// Decides on one address: places it, standardises it, or turns it down.
//
//   const Verifier verifier(base);
//   const ReplyAddress reply = verifier.Verify(request.addresses[0]);
//
// City, state and ZIP are checked against one another (LastLineChecker), the delivery line is
// brought into its standard form (Standardiser). The base knows no streets: an address that is
// placed is answered as not confirmed (DPVConfirmation N), its Zip4 is empty whatever was asked.
//
// Borrows the base. Any thread may call Verify.
class Verifier final : public AnswerSource {
 public:
  explicit Verifier(const ZipBase& base) : base_(base) {}

  ReplyAddress Verify(const RequestAddress& asked) const;

  // Answers within the call.
  void Find(const RequestAddress& asked, const std::string& asker, Done done) override;

 private:
  std::variant<ReplyFields, Rejection> Decide(const RequestAddress& asked) const;

  const ZipBase& base_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_VERIFIER_H_
