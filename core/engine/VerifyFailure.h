#ifndef POSTWRIGHT_CORE_ENGINE_VERIFYFAILURE_H_
#define POSTWRIGHT_CORE_ENGINE_VERIFYFAILURE_H_

#include <postwright/Export.h>

#include <string>

namespace postwright {

class VerifyReport;

// Why a fix failed, for a person: whether the service turned the address down, and in which words,
// or never judged it. A plain value, read from any thread.
//
//   const VerifyFailure failure(client.lastReport(), GetDeployment().verifyHost);
//   if (failure.IsUnanswered()) AskAgainLater(failure.Code());
class POSTWRIGHT_CORE_EXPORT VerifyFailure {
 public:
  // `report` is that of a fix that failed; `server`, the host that was asked, is named in the text.
  VerifyFailure(const VerifyReport& report, const std::string& server);

  // True where nobody judged the address: the service was not reached, said nothing that can be
  // read, or gave an error that is not the address's. Asking again later may help. False where
  // nothing is known of a fetch.
  bool IsUnanswered() const { return isUnanswered_; }

  // A stable name, for records that programs read. Not answered: "no-network", "not-resolved",
  // "refused", "timed-out", "broke-off", "bad-answer", "abandoned", "http-status", "service-error".
  // Turned down: "address-invalid", "zip-invalid", "city-invalid", "state-invalid", "not-found",
  // "several-found", "turned-down" for another reason. "" where nothing is known.
  const std::string& Code() const { return code_; }

  // In English: what happened and what to do. UTF-8, may hold the service's own words.
  const std::string& Text() const { return text_; }

 private:
  void ReadFetch(const VerifyReport& report, const std::string& server);
  void ReadRefusal(const VerifyReport& report);

  bool isUnanswered_ = false;
  std::string code_;
  std::string text_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_ENGINE_VERIFYFAILURE_H_
