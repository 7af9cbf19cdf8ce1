#include "apps/postwright/CandidateList.h"

#include <algorithm>

#include "apps/postwright/stream/JsonRecord.h"
#include "common/WideText.h"

namespace postwright {

namespace {

// Says of the numbers that only one side of the street has them.
std::string SideOf(AddressRangeType type) {
  const bool hasSide = type == AddressRangeTypeOdd || type == AddressRangeTypeEven;
  return hasSide ? " (" + std::string(ParityName(type)) + " numbers)" : "";
}

void AddRange(JsonRecord& record, const std::string& name, const std::wstring& low,
              const std::wstring& high, AddressRangeType type) {
  record.Add(name + "_low", low);
  record.Add(name + "_high", high);
  record.Add(name + "_parity", WideFromUtf8(ParityName(type)));
}

}  // namespace

const char* ParityName(AddressRangeType type) {
  switch (type) {
    case AddressRangeTypeOdd:
      return "odd";
    case AddressRangeTypeEven:
      return "even";
    case AddressRangeTypeBoth:
      return "both";
    default:
      return "";
  }
}

std::string CandidatesInWords(const QList<AddressMatch>& candidates) {
  std::string lines;
  int number = 0;
  for (const AddressMatch& candidate : candidates) {
    std::wstring text = candidate.GetAddressTemplate(false);
    std::replace(text.begin(), text.end(), L'\n', L' ');
    lines += (number < 9 ? "  " : " ") + std::to_string(number + 1) + "  " + Utf8FromAnyWide(text) +
             (candidate.HasPrimaryRange() ? SideOf(candidate.GetPrimaryType()) : "") + "\n";
    ++number;
  }
  return lines;
}

std::string CandidatesInJson(const QList<AddressMatch>& candidates) {
  std::string array;
  for (const AddressMatch& candidate : candidates) {
    JsonRecord record("");
    record.Add("address", candidate.GetAddressTemplate(true));
    if (candidate.HasPrimaryRange()) {
      AddRange(record, "number", candidate.GetPrimaryLow(), candidate.GetPrimaryHigh(),
               candidate.GetPrimaryType());
    }
    if (candidate.HasSecondaryRange()) {
      AddRange(record, "unit", candidate.GetSecondaryLow(), candidate.GetSecondaryHigh(),
               candidate.GetSecondaryType());
    }
    array += (array.empty() ? "" : ",") + record.Line();
    array.pop_back();  // the line feed
  }
  return "[" + array + "]";
}

}  // namespace postwright
