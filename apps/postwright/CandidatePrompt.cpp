#include "apps/postwright/CandidatePrompt.h"

#include <postwright/RangeFit.h>
#include <unistd.h>

#include <charconv>
#include <iostream>

#include "apps/postwright/CandidateList.h"
#include "apps/postwright/Explanation.h"
#include "common/SmallText.h"
#include "common/WideText.h"

namespace postwright {

namespace {

// The number of a list's line; 0 for anything else.
qsizetype NumberOf(const std::wstring& line, qsizetype most) {
  const std::string digits = Utf8FromAnyWide(line);
  qsizetype number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool isNumber = error == std::errc() && end == digits.data() + digits.size();
  return isNumber && number >= 1 && number <= most ? number : 0;
}

// Says, in lines, why the address is not taken without a question; "" where the service confirms
// it.
std::string DoubtOf(const LabelFix& fix) {
  if (fix.Values().status == AddressStatusError) {
    return ExplainReasonInWords(fix);
  }
  return fix.Confirmed().Kind() == ConfirmationFull ? "" : ExplainInWords(fix.Confirmed());
}

}  // namespace

CandidatePrompt::CandidatePrompt() {
  if (isatty(STDIN_FILENO) == 1 && isatty(STDERR_FILENO) == 1) {
    terminal_.open("/dev/tty");
  }
}

std::optional<std::wstring> CandidatePrompt::Offer(const LabelFix& fix,
                                                   const LabelFix::Asking& asking,
                                                   PostwrightClient& client) {
  QList<AddressMatch> candidates = fix.Candidates();
  for (;;) {
    const std::optional<std::wstring> chosen = Choose(candidates);
    if (!chosen) {
      return std::nullopt;
    }
    const LabelFix answer(*chosen, asking, client);
    const std::string doubt = DoubtOf(answer);
    if (doubt.empty()) {
      return answer.Text();
    }
    std::cerr << doubt;
    if (answer.Confirmed().Kind() == ConfirmationUnitMissing && !answer.Candidates().isEmpty()) {
      candidates = answer.Candidates();
    } else if (Agrees()) {
      return *chosen;
    }
  }
}

std::optional<std::wstring> CandidatePrompt::Choose(const QList<AddressMatch>& candidates) {
  for (;;) {
    std::cerr << "The service knows these addresses:\n"
              << CandidatesInWords(candidates)
              << "Which one is meant? Its number, or Return for none: " << std::flush;
    const std::optional<std::wstring> line = ReadLine();
    if (!line || line->empty()) {
      return std::nullopt;
    }
    const qsizetype number = NumberOf(*line, candidates.size());
    if (number == 0) {
      std::cerr << "That is not a number from 1 to " << candidates.size() << ".\n";
      continue;
    }
    const AddressMatch& candidate = candidates.at(number - 1);
    std::optional<std::wstring> primary = L"";
    std::optional<std::wstring> secondary = L"";
    if (candidate.HasPrimaryRange()) {
      primary =
          AskValue(candidate.IsPOBox() ? "Box number" : "House number", candidate.GetPrimaryLow(),
                   candidate.GetPrimaryHigh(), candidate.GetPrimaryType());
    }
    if (primary && candidate.HasSecondaryRange() && !candidate.IsPOBox()) {
      secondary = AskValue("Unit", candidate.GetSecondaryLow(), candidate.GetSecondaryHigh(),
                           candidate.GetSecondaryType());
    }
    if (primary && secondary) {
      return candidate.ComposeAddressForRechecking(*primary, *secondary);
    }
  }
}

// Nullopt where the person goes back to the list.
std::optional<std::wstring> CandidatePrompt::AskValue(const std::string& what,
                                                      const std::wstring& low,
                                                      const std::wstring& high,
                                                      AddressRangeType type) {
  const std::string range = Utf8FromAnyWide(low) + " to " + Utf8FromAnyWide(high);
  const bool hasSide = type == AddressRangeTypeOdd || type == AddressRangeTypeEven;
  const std::string side = hasSide ? std::string(", ") + ParityName(type) : "";
  std::cerr << what << ", " << range << side << ": " << std::flush;
  const std::optional<std::wstring> value = ReadLine();
  if (!value || value->empty()) {
    return std::nullopt;
  }
  const RangeFit fit = FitOfRange(*value, low, high, type);
  if (fit == RangeFitInside) {
    return value;
  }
  std::cerr << Utf8FromAnyWide(*value)
            << (fit == RangeFitParity ? std::string(" is not ") + ParityName(type) + ".\n"
                                      : " is not between " + Utf8FromAnyWide(low) + " and " +
                                            Utf8FromAnyWide(high) + ".\n");
  return Agrees() ? value : std::nullopt;
}

bool CandidatePrompt::Agrees() {
  std::cerr << "Take it all the same? y or n: " << std::flush;
  const std::optional<std::wstring> line = ReadLine();
  return line && (*line == L"y" || *line == L"Y" || *line == L"yes");
}

// Without blanks around; nullopt at the end of the input.
std::optional<std::wstring> CandidatePrompt::ReadLine() {
  std::string line;
  if (!std::getline(terminal_, line)) {
    return std::nullopt;
  }
  try {
    return WideFromUtf8(Trim(line));
  } catch (const boost::locale::conv::conversion_error&) {
    return L"?";  // neither a number nor a yes
  }
}

}  // namespace postwright
