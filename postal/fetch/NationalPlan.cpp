#include "postal/fetch/NationalPlan.h"

#include <algorithm>

#include "postal/fetch/FetchError.h"
#include "postal/fetch/FetchPlaces.h"

namespace postwright::postal {
namespace {

constexpr const char* kFile = "/download/fc2s-wawr/application/x-zip-compressed";

// What tells this quarter's file from the last one's: asked with the request for its first bytes.
std::string AskStamp(SiteClient& client, const std::string& url) {
  constexpr size_t kMost = size_t{1} << 20U;
  for (int failures = 0;;) {
    HttpHead head;
    const HttpFetch::Reply reply = client.Ask(url, {"Range: bytes=0-3"}, kMost,
                                              [&head](const HttpHead& now, std::string_view) {
                                                head = now;
                                                return false;  // the rest is not wanted now
                                              });
    if (head.status == 200 || head.status == 206) {
      const std::string_view tag = head.Find("ETag");
      return std::string(tag.empty() ? head.Find("Last-Modified") : tag);
    }
    HttpFetch::Reply refused = reply;
    if (head.status != 0) {
      refused.outcome = HttpOutcome::Answered;
      refused.status = head.status;
    }
    client.WaitAfter(url, refused, failures);
  }
}

}  // namespace

FetchPlan PlanNational(SiteClient& client, const FetchRequest& request) {
  const std::vector<Place> places = ReadPlaces(request.places, [] { return std::string(); });
  if (std::ranges::any_of(places, &Place::IsCounty)) {
    throw FetchError("the National Address Database comes as one file for all: name states");
  }
  FetchPlan plan;
  const std::string url = client.Origin() + kFile;
  plan.files.push_back({url, "nad-txt.zip", AskStamp(client, url)});
  plan.facts = {
      "National Address Database, " + NameOf(request.places),         "",    "public domain",
      "U.S. Department of Transportation, National Address Database", false, {}};
  if (places.size() < States().size()) {
    for (const Place& place : places) {
      plan.facts.states.push_back(place.state);
    }
  }
  return plan;
}

}  // namespace postwright::postal
