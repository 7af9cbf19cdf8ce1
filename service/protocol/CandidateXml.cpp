#include "service/protocol/CandidateXml.h"

#include <algorithm>

#include "service/protocol/VerifyRequest.h"
#include "service/protocol/Xml.h"
#include "service/protocol/XmlDocument.h"

namespace postwright::service {
namespace {

using postal::Candidate;
using postal::CandidateSpan;
using postal::Parity;

struct TextRow {
  const char* element;
  std::string Candidate::*member;
};

constexpr TextRow kTexts[] = {
    {"Above", &Candidate::above},
    {"Address2", &Candidate::street},
    {"City", &Candidate::city},
    {"State", &Candidate::state},
    {"Urbanization", &Candidate::urbanization},
    {"Zip5", &Candidate::zip5},
};

struct SpanRow {
  CandidateSpan Candidate::*member;
  const char* low;
  const char* high;
  const char* parity;
};

constexpr SpanRow kSpans[] = {
    {&Candidate::primary, "PrimaryLow", "PrimaryHigh", "PrimaryParity"},
    {&Candidate::secondary, "SecondaryLow", "SecondaryHigh", "SecondaryParity"},
};

void WriteSpan(std::string& xml, const CandidateSpan& span, const SpanRow& row) {
  if (!span.IsEmpty()) {
    AppendElement(xml, row.low, span.low);
    AppendElement(xml, row.high, span.high);
    AppendElement(xml, row.parity, std::string(1, static_cast<char>(span.parity)));
  }
}

// The text of a child; more than a field may have is kept as one byte more, to be turned down.
std::string ValueOf(pugi::xml_node candidate, const char* element) {
  return XmlDocument::TextOf(candidate.child(element), VerifyRequest::kLongestField + 1);
}

CandidateSpan ReadSpan(pugi::xml_node candidate, const SpanRow& row) {
  CandidateSpan span{ValueOf(candidate, row.low), ValueOf(candidate, row.high), Parity::Both};
  if (span.low.empty() || span.high.empty()) {
    return {};
  }
  const std::string parity = ValueOf(candidate, row.parity);
  span.parity = parity == "E" ? Parity::Even : parity == "O" ? Parity::Odd : Parity::Both;
  return span;
}

Candidate ReadOne(pugi::xml_node element) {
  Candidate candidate;
  for (const TextRow& row : kTexts) {
    candidate.*row.member = ValueOf(element, row.element);
  }
  for (const SpanRow& row : kSpans) {
    candidate.*row.member = ReadSpan(element, row);
  }
  const std::string type = ValueOf(element, "RecordType");
  candidate.recordType = type.size() == 1 ? type[0] : 'S';
  return candidate;
}

bool IsWhole(const Candidate& candidate) {
  const auto fits = [](const std::string& text) {
    return text.size() <= VerifyRequest::kLongestField;
  };
  return !candidate.street.empty() && !candidate.city.empty() && candidate.state.size() == 2 &&
         std::all_of(std::begin(kTexts), std::end(kTexts),
                     [&](const TextRow& row) { return fits(candidate.*row.member); }) &&
         std::all_of(std::begin(kSpans), std::end(kSpans), [&](const SpanRow& row) {
           return fits((candidate.*row.member).low) && fits((candidate.*row.member).high);
         });
}

}  // namespace

void CandidateXml::Write(std::string& xml, const std::vector<Candidate>& candidates) {
  if (candidates.empty()) {
    return;
  }
  xml += "<Candidates>";
  for (const Candidate& candidate : candidates) {
    xml += "<Candidate>";
    for (const TextRow& row : kTexts) {
      if (const std::string& text = candidate.*row.member; !text.empty()) {
        AppendElement(xml, row.element, text);
      }
    }
    for (const SpanRow& row : kSpans) {
      WriteSpan(xml, candidate.*row.member, row);
    }
    AppendElement(xml, "RecordType", std::string(1, candidate.recordType));
    xml += "</Candidate>";
  }
  xml += "</Candidates>";
}

std::vector<Candidate> CandidateXml::Read(pugi::xml_node address) {
  std::vector<Candidate> candidates;
  for (const pugi::xml_node element : address.child("Candidates").children("Candidate")) {
    if (candidates.size() == Candidate::kMost) {
      break;
    }
    if (Candidate candidate = ReadOne(element); IsWhole(candidate)) {
      candidates.push_back(std::move(candidate));
    }
  }
  return candidates;
}

}  // namespace postwright::service
