#include "service/gateway/GatewayFault.h"

#include <ctime>

namespace postwright::service {
namespace {

constexpr const char* kAuthorisation = "80040B1A";
constexpr const char* kOther = "80040B18";

std::string TextOf(FaultKind kind) {
  switch (kind) {
    case FaultKind::Unauthorised:
      return "Authorization failure.  Perhaps username and/or password is incorrect.";
    case FaultKind::Forbidden:
      return "API Authorization failure. The gateway's user is not authorized to use API Verify.";
    case FaultKind::Quota:
      return "The address service behind this gateway takes no more calls for now.";
    case FaultKind::BudgetSpent:
      return "The gateway has made all the calls to the address service that it may make for now.";
    case FaultKind::ServerError:
    case FaultKind::Unreachable:
    case FaultKind::TimedOut:
      return "The address service behind this gateway fails or cannot be reached.";
    case FaultKind::Refused:
    case FaultKind::BadReply:
      return "The address service behind this gateway gave an answer that cannot be used.";
    case FaultKind::QueueFull:
      return "Too many addresses wait for the address service behind this gateway.";
    case FaultKind::Late:
      return "The address service behind this gateway gave no answer in time.";
    case FaultKind::Stopping:
      return "The gateway is ending.";
  }
  return {};
}

}  // namespace

ServiceFault ExplainFault(FaultKind kind, std::optional<Clock::Date> resumesAt) {
  const std::string name(NameOf(kind));
  if (kind == FaultKind::Unauthorised || kind == FaultKind::Forbidden) {
    return {kAuthorisation, TextOf(kind), name};
  }
  const std::string again =
      resumesAt ? " It goes on with new addresses at " + FormatDate(*resumesAt) + "."
                : " Send the address again in a moment.";
  return {kOther, TextOf(kind) + again, name};
}

std::string FormatDate(Clock::Date date) {
  // Up to the next whole second: who comes back then is not too early.
  const auto whole = std::chrono::ceil<std::chrono::seconds>(date);
  const std::time_t seconds = Clock::Date::clock::to_time_t(whole);
  std::tm parts = {};
  gmtime_r(&seconds, &parts);
  char text[40] = "";
  const size_t length = std::strftime(text, sizeof(text), "%Y-%m-%d %H:%M:%S UTC", &parts);
  return {text, length};
}

}  // namespace postwright::service
