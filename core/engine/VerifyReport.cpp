#include <postwright/VerifyReport.h>

#include "common/Encoding.h"
#include "common/SmallText.h"
#include "core/engine/ReplyDocument.h"

#include <tinyxml.h>

#include <cstring>
#include <optional>
#include <utility>

namespace postwright {

namespace {

// The text of the first child of that name. In a document that names no encoding TinyXML makes one
// byte of a character reference, and anywhere three of half a surrogate pair.
std::string ChildText(const TiXmlElement& parent, const char* name) {
  const TiXmlElement* const child = parent.FirstChildElement(name);
  const char* const text = child == nullptr ? nullptr : child->GetText();
  return DecodeText(Trim(text == nullptr ? "" : text));
}

struct CandidateText {
  const char* element;
  std::string VerifyCandidate::*member;
  bool isNeeded;
};

constexpr CandidateText kCandidateTexts[] = {
    {"Above", &VerifyCandidate::above, false},
    {"Address2", &VerifyCandidate::street, true},
    {"Urbanization", &VerifyCandidate::urbanization, false},
    {"City", &VerifyCandidate::city, true},
    {"State", &VerifyCandidate::state, true},
    {"Zip5", &VerifyCandidate::zip5, true},
    {"PrimaryLow", &VerifyCandidate::primaryLow, false},
    {"PrimaryHigh", &VerifyCandidate::primaryHigh, false},
    {"SecondaryLow", &VerifyCandidate::secondaryLow, false},
    {"SecondaryHigh", &VerifyCandidate::secondaryHigh, false},
    {"RecordType", &VerifyCandidate::recordType, false},
};

AddressRangeType RangeTypeOf(const std::string& parity) {
  return parity == "O"   ? AddressRangeTypeOdd
         : parity == "E" ? AddressRangeTypeEven
         : parity == "B" ? AddressRangeTypeBoth
                         : AddressRangeTypeNone;
}

constexpr std::size_t kLongestText = 200;

// Nullopt for one that would make no address.
std::optional<VerifyCandidate> ReadCandidate(const TiXmlElement& element) {
  VerifyCandidate candidate;
  for (const CandidateText& row : kCandidateTexts) {
    std::string text = ChildText(element, row.element);
    if (text.size() > kLongestText || (row.isNeeded && text.empty())) {
      return std::nullopt;
    }
    candidate.*row.member = std::move(text);
  }
  candidate.primaryType = RangeTypeOf(ChildText(element, "PrimaryParity"));
  candidate.secondaryType = RangeTypeOf(ChildText(element, "SecondaryParity"));
  return candidate;
}

std::vector<VerifyCandidate> ReadCandidates(const TiXmlElement& address) {
  std::vector<VerifyCandidate> candidates;
  const TiXmlElement* const all = address.FirstChildElement("Candidates");
  const TiXmlElement* element = all == nullptr ? nullptr : all->FirstChildElement("Candidate");
  for (; element != nullptr && candidates.size() < VerifyCandidate::kMost;
       element = element->NextSiblingElement("Candidate")) {
    if (auto candidate = ReadCandidate(*element)) {
      candidates.push_back(std::move(*candidate));
    }
  }
  return candidates;
}

// Longer than any name or date would be: not passed on.
VerifySource ReadSource(const TiXmlElement& address) {
  const TiXmlElement* const element = address.FirstChildElement("Source");
  if (element == nullptr) {
    return {};
  }
  VerifySource source{VerifySourceKindOf(ChildText(*element, "Kind")), ChildText(*element, "Name"),
                      ChildText(*element, "Date")};
  const bool fits = source.name.size() <= kLongestText && source.date.size() <= kLongestText;
  return fits && source.kind != VerifySourceUntold ? source : VerifySource();
}

}  // namespace

VerifyReport::VerifyReport(std::string_view reply, const FetchReport& fetch) : fetch_(fetch) {
  TiXmlDocument document;
  const TiXmlElement* const root =
      ParseReply(std::string(reply), &document) ? nullptr : document.RootElement();
  if (root == nullptr) {
    return;
  }
  const TiXmlElement* const address = root->FirstChildElement("Address");
  const TiXmlElement* const error = address != nullptr ? address->FirstChildElement("Error")
                                    : std::strcmp(root->Value(), "Error") == 0 ? root
                                                                               : nullptr;
  isAboutAddress_ = address != nullptr;
  isAnswer_ = address != nullptr || error != nullptr;
  if (address != nullptr) {
    candidates_ = ReadCandidates(*address);
    source_ = ReadSource(*address);
  }
  if (error != nullptr) {
    errorNumber_ = ChildText(*error, "Number");
    errorSource_ = ChildText(*error, "Source");
    errorDescription_ = ChildText(*error, "Description");
  } else if (address != nullptr) {
    dpvConfirmation_ = ChildText(*address, "DPVConfirmation");
    dpvFootnotes_ = ChildText(*address, "DPVFootnotes");
    footnotes_ = ChildText(*address, "Footnotes");
    returnText_ = ChildText(*address, "ReturnText");
    zip4_ = ChildText(*address, "Zip4");
    carrierRoute_ = ChildText(*address, "CarrierRoute");
    deliveryPoint_ = ChildText(*address, "DeliveryPoint");
  }
}

}  // namespace postwright
