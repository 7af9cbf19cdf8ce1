#include <postwright/VerifyFailure.h>

#include <postwright/VerifyReport.h>

#include <algorithm>
#include <string_view>

namespace postwright {

namespace {

// In the texts "@" stands for the server.
struct FetchRow {
  FetchOutcome outcome;
  const char* code;
  const char* text;
};

constexpr FetchRow kFetchRows[] = {
    {FetchOutcomeNoNetwork, "no-network",
     "No internet connection available: there is no way to @, or nobody to look up its name. Look "
     "at the network."},
    {FetchOutcomeNotResolved, "not-resolved", "There is no host @. Look at the server's name."},
    {FetchOutcomeRefused, "refused",
     "Nothing answers at @ (connection refused). Start the service there, or name another server."},
    {FetchOutcomeTimedOut, "timed-out",
     "The service at @ gave no answer in time. Try again later, or give it more time."},
    {FetchOutcomeBrokeOff, "broke-off",
     "The connection to @ ended before the answer did. Try again later."},
    {FetchOutcomeBadAnswer, "bad-answer",
     "What answers at @ is not a Verify service. Look at the server's name."},
    {FetchOutcomeAnswered, "bad-answer",
     "The reply of @ cannot be read as that of a Verify service. Look at the server's name."},
    {FetchOutcomeAbandoned, "abandoned", "The question to @ was given up."},
};

// The numbers are those of the postal service's own Verify interface.
struct RefusalRow {
  const char* number;
  const char* code;
  const char* text;
};

constexpr RefusalRow kRefusalRows[] = {
    {"-2147219396", "address-invalid", "Look at the street's line: number, street and unit."},
    {"-2147219399", "zip-invalid",
     "Look at the ZIP code: it is none, or belongs to another place."},
    {"-2147219400", "city-invalid", "Look at the city: there is none of the name in the state."},
    {"-2147219401", "not-found", "Look at the street and its number, and at the ZIP code."},
    {"-2147219402", "state-invalid", "Look at the state: write its two letters."},
    {"-2147219403", "several-found",
     "Write more of it: a directional, the street's suffix, or the ZIP code."},
};
constexpr RefusalRow kOtherRefusal = {"", "turned-down", "Look at the whole address."};

const RefusalRow& RefusalOf(const std::string& number) {
  const auto* const row =
      std::find_if(std::begin(kRefusalRows), std::end(kRefusalRows),
                   [&number](const RefusalRow& candidate) { return number == candidate.number; });
  return row == std::end(kRefusalRows) ? kOtherRefusal : *row;
}

std::string Fill(std::string_view text, const std::string& server) {
  const std::size_t at = text.find('@');
  return std::string(text.substr(0, at)) + server + std::string(text.substr(at + 1));
}

// The service's words, ended as a sentence.
std::string Quote(const std::string& description) {
  const std::string words = description.empty() ? "no reason was given" : description;
  return "The service says: " + words + (words.ends_with('.') ? " " : ". ");
}

}  // namespace

VerifyFailure::VerifyFailure(const VerifyReport& report, const std::string& server) {
  if (report.IsAboutAddress()) {
    ReadRefusal(report);
  } else {
    ReadFetch(report, server);
  }
}

void VerifyFailure::ReadRefusal(const VerifyReport& report) {
  const RefusalRow& row = RefusalOf(report.ErrorNumber());
  code_ = row.code;
  text_ = Quote(report.ErrorDescription()) + row.text;
}

void VerifyFailure::ReadFetch(const VerifyReport& report, const std::string& server) {
  if (report.IsAnswer()) {
    isUnanswered_ = true;
    code_ = "service-error";
    text_ = Quote(report.ErrorDescription()) + "The address was not looked at.";
    return;
  }
  const FetchReport& fetch = report.Fetch();
  if (fetch.httpStatus >= 300) {
    isUnanswered_ = true;
    code_ = "http-status";
    text_ = "The service at " + server + " answers with HTTP status " +
            std::to_string(fetch.httpStatus) + ". Try again later, or look at the server's name.";
    return;
  }
  const auto* const row = std::find_if(
      std::begin(kFetchRows), std::end(kFetchRows),
      [&fetch](const FetchRow& candidate) { return fetch.outcome == candidate.outcome; });
  if (row != std::end(kFetchRows)) {
    isUnanswered_ = true;
    code_ = row->code;
    text_ = Fill(row->text, server);
  }
}

}  // namespace postwright
