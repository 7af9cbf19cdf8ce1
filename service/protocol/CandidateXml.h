#ifndef POSTWRIGHT_SERVICE_PROTOCOL_CANDIDATEXML_H_
#define POSTWRIGHT_SERVICE_PROTOCOL_CANDIDATEXML_H_

#include <pugixml.hpp>

#include <string>
#include <vector>

#include "postal/base/Candidate.h"

namespace postwright::service {

// The element `Candidates` of an address, which clients that have not asked for it never see:
// docs/verify-service.md has its form.
namespace CandidateXml {

// Appends the element; nothing where there are no candidates.
void Write(std::string& xml, const std::vector<postal::Candidate>& candidates);

// Reads the element of `address`: what is written as Write() does, at most Candidate::kMost, and
// none with a field that is longer than an address has.
std::vector<postal::Candidate> Read(pugi::xml_node address);

}  // namespace CandidateXml
}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_PROTOCOL_CANDIDATEXML_H_
