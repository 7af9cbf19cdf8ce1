#ifndef POSTWRIGHT_PLATFORM_REPORTINGSERVICES_H_
#define POSTWRIGHT_PLATFORM_REPORTINGSERVICES_H_

#include <postwright/AbandonableServices.h>
#include <postwright/FetchReport.h>

#include <string>

namespace postwright {

// The platform services for a caller that wants a second look at the reply: VerifyReport reads what
// Postwright::Fix passes over. Has a state: one object belongs to one fix at a time.
class POSTWRIGHT_CORE_EXPORT ReportingServices : public AbandonableServices {
 public:
  // `abandoned` as in the base; null where nobody loses interest.
  explicit ReportingServices(const std::atomic<bool>* abandoned = nullptr)
      : AbandonableServices(abandoned) {}

  // As in the base; keeps the body, and how the fetch ended.
  std::unique_ptr<std::vector<std::uint8_t>> ReadUrl(const wchar_t* url) override;

  // The body of the last fetch, at most 16 MiB; empty before the first, and after one that failed.
  const std::string& Reply() const { return reply_; }

  // How it ended; FetchOutcomeUnknown before the first.
  const FetchReport& Fetch() const { return fetch_; }

 private:
  std::string reply_;
  FetchReport fetch_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_PLATFORM_REPORTINGSERVICES_H_
