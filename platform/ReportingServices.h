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

  // As in the base; keeps the message.
  void LogWarning(const wchar_t* format, ...) override;

  // Has every fetch from now on ask for at most `most` candidates, 1 to 50, in the head of its
  // request ("Postwright-Candidates: 50"): what could have been meant, where a service that knows
  // of it has a choice to offer. 0, as at first, asks for none. A class that fetches by itself
  // sends the field by itself.
  void WantCandidates(int most) { candidates_ = most; }

  // The same for whose word the answer is ("Postwright-Source: 1").
  void WantSource() { wantsSource_ = true; }

  // The body of the last fetch, at most 16 MiB; empty before the first, and after one that failed.
  const std::string& Reply() const { return reply_; }

  // How it ended; FetchOutcomeUnknown before the first.
  const FetchReport& Fetch() const { return fetch_; }

  // What was warned of since it began: "Postwright::Fix(): server error = 'Invalid City.'"; mostly
  // empty.
  const std::wstring& Warning() const { return warning_; }

 protected:
  int WantedCandidates() const { return candidates_; }

  bool WantsSource() const { return wantsSource_; }

  // For a class that fetches by itself: what Reply() and Fetch() say from now on.
  void Keep(const std::vector<std::uint8_t>& body, const FetchReport& fetch);

 private:
  std::string reply_;
  std::wstring warning_;
  FetchReport fetch_;
  int candidates_ = 0;
  bool wantsSource_ = false;
};

}  // namespace postwright

#endif  // POSTWRIGHT_PLATFORM_REPORTINGSERVICES_H_
