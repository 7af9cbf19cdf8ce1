#include "client/LabelCandidates.h"

#include <algorithm>
#include <utility>

namespace postwright {
namespace {

// What stands around the address in the label, without the line breaks at the address itself.
std::pair<std::wstring, std::wstring> surroundings(const AddressLines& lines) {
  const std::wstring mark(1, L'\1');  // in no text that a service was asked about
  const std::wstring label = lines.PutBack(mark);
  const std::size_t at = label.find(mark);
  std::wstring above = label.substr(0, at);
  std::wstring below = at == label.npos ? L"" : label.substr(at + 1);
  above.resize(above.find_last_not_of(L"\r\n") + 1);
  below.erase(0, std::min(below.find_first_not_of(L"\r\n"), below.size()));
  return {std::move(above), std::move(below)};
}

std::wstring joined(const std::wstring& first, const std::wstring& second) {
  return first + (first.empty() || second.empty() ? L"" : L"\n") + second;
}

}  // namespace

void putCandidatesBack(const AddressLines& lines, AddressFix& answer) {
  if (answer.Candidates.isEmpty() || lines.GetOutcome() != AddressLinesFound) {
    return;  // the whole text was asked about: they have its lines
  }
  const auto [above, below] = surroundings(lines);
  answer.MatchedAddresses.clear();
  for (AddressMatch& match : answer.Candidates) {
    const AddressFields fields(joined(above, match.GetPrefix()), match.GetPrimaryStreet(),
                               match.GetSecondaryStreet(), match.GetCity(), match.GetState(),
                               match.GetZip(), joined(match.GetSuffix(), below));
    match = AddressMatch(fields, match.GetPrimaryType(), match.GetPrimaryLow(),
                         match.GetPrimaryHigh(), match.GetSecondaryType(), match.GetSecondaryLow(),
                         match.GetSecondaryHigh(), match.IsPOBox() ? L"P" : L"");
    answer.MatchedAddresses.append(std::make_shared<PostwrightSelector>(
        QString::fromStdWString(match.GetAddressPattern(true)),
        QString::fromStdWString(match.GetAddressTemplate(true)),
        QString::fromStdWString(match.GetSecondaryLow()),
        QString::fromStdWString(match.GetSecondaryHigh())));
  }
}

}  // namespace postwright
