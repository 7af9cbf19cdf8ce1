#include "apps/base/LookupCommand.h"

#include <iostream>

#include "apps/DefaultZips.h"
#include "apps/base/BaseExit.h"
#include "service/Verifier.h"

namespace postwright::postal {
namespace {

const char* Describe(const std::string& confirmation) {
  return confirmation == "Y"   ? "confirmed"
         : confirmation == "D" ? "the building is confirmed, its unit is missing"
         : confirmation == "S" ? "the building is confirmed, its unit is not"
                               : "not confirmed";
}

int WriteAnswer(const service::ReplyFields& fields) {
  std::cout << '\n';
  for (const std::string* line : {&fields.urbanization, &fields.address1, &fields.address2}) {
    if (!line->empty()) {
      std::cout << *line << '\n';
    }
  }
  std::cout << fields.city << ' ' << fields.state << ' ' << fields.zip5
            << (fields.zip4.empty() ? "" : "-") << fields.zip4 << "\n\n";
  std::cout << "DPVConfirmation  " << fields.dpvConfirmation << ": "
            << Describe(fields.dpvConfirmation) << '\n';
  if (!fields.dpvFootnotes.empty()) {
    std::cout << "DPVFootnotes     " << fields.dpvFootnotes << '\n';
  }
  if (!fields.footnotes.empty()) {
    std::cout << "Footnotes        " << fields.footnotes << '\n';
  }
  return fields.dpvConfirmation == "N" ? kExitNotConfirmed : kExitDone;
}

}  // namespace

int RunLookup(const LookupOptions& options) {
  ZipList zips;
  zips.Load(DefaultZips());
  if (!options.zips.empty()) {
    zips.Load(options.zips);
  }
  const JoinedBases addresses({options.base});
  service::RequestAddress asked;
  asked.address1 = options.unit;
  asked.address2 = options.street;
  asked.city = options.city;
  asked.state = options.state;
  asked.zip5 = options.zip;
  Explanation explanation;
  const service::ReplyAddress reply =
      service::Verifier(zips, &addresses).Explain(asked, explanation);
  for (const std::string& step : explanation) {
    std::cout << "- " << step << '\n';
  }
  if (const auto* fields = std::get_if<service::ReplyFields>(&reply.outcome)) {
    return WriteAnswer(*fields);
  }
  const Rejection rejection = std::get<Rejection>(reply.outcome);
  std::cout << "\nturned down: " << service::VerifyReply::NumberOf(rejection) << ' '
            << service::VerifyReply::DescriptionOf(rejection) << '\n';
  return kExitNotConfirmed;
}

}  // namespace postwright::postal
