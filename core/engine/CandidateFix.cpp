#include <postwright/CandidateFix.h>

#include "common/WideText.h"

#include <postwright/AddressParser.h>
#include <postwright/Postwright.h>
#include <postwright/PostwrightException.h>
#include <postwright/ReportingServices.h>
#include <postwright/VerifyReport.h>

#include <optional>

namespace postwright {

namespace {

// The candidate among the lines around the address in the text that was asked about.
AddressMatch MatchOf(const VerifyCandidate& candidate, const AddressInfo& asked) {
  const std::wstring above = WideFromUtf8(candidate.above);
  const bool both = !asked.prefix.empty() && !above.empty();
  const AddressFields fields(asked.prefix + (both ? L"\n" : L"") + above,
                             WideFromUtf8(candidate.street), WideFromUtf8(candidate.urbanization),
                             WideFromUtf8(candidate.city), WideFromUtf8(candidate.state),
                             WideFromUtf8(candidate.zip5), asked.suffix);
  return {fields,
          candidate.primaryType,
          WideFromUtf8(candidate.primaryLow),
          WideFromUtf8(candidate.primaryHigh),
          candidate.secondaryType,
          WideFromUtf8(candidate.secondaryLow),
          WideFromUtf8(candidate.secondaryHigh),
          WideFromUtf8(candidate.recordType)};
}

}  // namespace

std::unique_ptr<FixedAddress> FixWithCandidates(const std::wstring& text, bool flag, int most,
                                                ReportingServices* services) {
  services->WantCandidates(most);
  std::unique_ptr<FixedAddress> fixed;
  std::optional<PostwrightException> refusal;
  try {
    fixed = Postwright::Fix(text, flag, services);
  } catch (const PostwrightException& failure) {
    if (failure.GetResult() != FixResultInvalidAddress) {
      throw;
    }
    refusal = failure;
  }
  const VerifyReport report(services->Reply(), services->Fetch());
  if (report.Candidates().empty() && refusal) {
    throw PostwrightException(*refusal);
  }
  if (report.Candidates().empty()) {
    return fixed;
  }
  const AddressInfo asked = AddressParser::GetInstance()->Parse(text);
  std::vector<AddressMatch> matches;
  for (const VerifyCandidate& candidate : report.Candidates()) {
    matches.push_back(MatchOf(candidate, asked));
  }
  return std::make_unique<FixedAddress>(
      FixResultMultipleMatch, fixed ? fixed->GetExactMatchAddress() : AddressFields(), matches);
}

}  // namespace postwright
