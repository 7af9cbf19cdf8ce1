#include "core/label/LabelCandidates.h"

#include <algorithm>
#include <string>
#include <utility>

namespace postwright {
namespace {

// What is around the address in the label, without the line breaks at the address itself.
std::pair<std::wstring, std::wstring> Surroundings(const AddressLines& lines) {
  const std::wstring mark(1, L'\1');  // in no text that a service was asked about
  const std::wstring label = lines.PutBack(mark);
  const std::size_t at = label.find(mark);
  std::wstring above = label.substr(0, at);
  std::wstring below = at == label.npos ? L"" : label.substr(at + 1);
  above.resize(above.find_last_not_of(L"\r\n") + 1);
  below.erase(0, std::min(below.find_first_not_of(L"\r\n"), below.size()));
  return {std::move(above), std::move(below)};
}

std::wstring Joined(const std::wstring& first, const std::wstring& second) {
  return first + (first.empty() || second.empty() ? L"" : L"\n") + second;
}

}  // namespace

AddressMatch WithinLabel(const AddressLines& lines, const AddressMatch& candidate) {
  if (lines.GetOutcome() != AddressLinesFound) {
    return candidate;
  }
  const auto [above, below] = Surroundings(lines);
  const AddressFields fields(Joined(above, candidate.GetPrefix()), candidate.GetPrimaryStreet(),
                             candidate.GetSecondaryStreet(), candidate.GetCity(),
                             candidate.GetState(), candidate.GetZip(),
                             Joined(candidate.GetSuffix(), below));
  return AddressMatch(fields, candidate.GetPrimaryType(), candidate.GetPrimaryLow(),
                      candidate.GetPrimaryHigh(), candidate.GetSecondaryType(),
                      candidate.GetSecondaryLow(), candidate.GetSecondaryHigh(),
                      candidate.IsPOBox() ? L"P" : L"");
}

}  // namespace postwright
