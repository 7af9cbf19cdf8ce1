#include "service/upstream/Upstream.h"

namespace postwright::service {

std::string_view NameOf(FaultKind kind) {
  switch (kind) {
    case FaultKind::Unauthorised:
      return "unauthorised";
    case FaultKind::Forbidden:
      return "forbidden";
    case FaultKind::Quota:
      return "quota";
    case FaultKind::Refused:
      return "refused";
    case FaultKind::ServerError:
      return "server-error";
    case FaultKind::Unreachable:
      return "unreachable";
    case FaultKind::TimedOut:
      return "timed-out";
    case FaultKind::BadReply:
      return "bad-reply";
    case FaultKind::BudgetSpent:
      return "budget-spent";
    case FaultKind::QueueFull:
      return "queue-full";
    case FaultKind::Late:
      return "late";
    case FaultKind::Stopping:
      return "stopping";
  }
  return "";
}

AddressAnswer UpstreamOutcome::ToAnswer() const {
  const auto* const fields = std::get_if<ReplyFields>(&answer);
  AddressAnswer found = fields != nullptr ? AddressAnswer(*fields)
                                          : AddressAnswer(std::get<postal::Rejection>(answer));
  found.candidates = candidates;
  return found;
}

}  // namespace postwright::service
