#ifndef POSTWRIGHT_CORE_C_HANDLES_H_
#define POSTWRIGHT_CORE_C_HANDLES_H_

#include <postwright/FixedAddress.h>
#include <postwright/VerifyReport.h>
#include <postwright/postwright.h>

#include <array>
#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

struct postwright_address {
  std::array<std::string, POSTWRIGHT_ELEMENTS> elements;
  std::string text;
};

struct postwright_candidates {
  std::vector<postwright::AddressMatch> matches;
  std::vector<std::array<std::string, 5>> strings;
  std::vector<postwright_candidate> candidates;
  std::string composed;
};

struct postwright_report {
  std::array<std::int32_t, POSTWRIGHT_REPORT_NUMBERS> numbers;
  std::array<std::string, POSTWRIGHT_REPORT_TEXTS> texts;
};

struct postwright_canceller {
  std::atomic<bool> cancelled = false;
};

namespace postwright {

// Waits for the turn at the parser, the process's only one, which a fix uses too; nullopt where
// the caller has lost interest before it came. `cancelled` may be null.
std::optional<std::unique_lock<std::timed_mutex>> TakeTurn(const std::atomic<bool>* cancelled);

// The corrected address as a handle.
std::unique_ptr<postwright_address> NewAddress(const FixedAddress& fixed);

// Its candidates.
std::unique_ptr<postwright_candidates> NewCandidates(const FixedAddress& fixed);

// The report of a fix; `isFailed` where it made no address, so that there is a reason.
std::unique_ptr<postwright_report> NewReport(const VerifyReport& report, bool isFailed);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_C_HANDLES_H_
