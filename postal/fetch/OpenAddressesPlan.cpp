#include "postal/fetch/OpenAddressesPlan.h"

#include <simdjson.h>

#include <algorithm>

#include "postal/fetch/FetchError.h"
#include "postal/fetch/FetchPlaces.h"

namespace postwright::postal {
namespace {

constexpr const char* kList = "/api/data?layer=addresses&source=us/";
constexpr size_t kMostLevels = 64;
constexpr size_t kMostList = size_t{64} << 20U;

// "us/tx/" of Texas.
std::string FolderOf(const Place& place) {
  std::string folder = "us/";
  for (const char letter : place.state) {
    folder += static_cast<char>(letter - 'A' + 'a');
  }
  return folder + '/';
}

std::string TextOf(const simdjson::dom::element& entry, const char* name) {
  simdjson::dom::element value;
  std::string_view text;
  if (entry[name].get(value) != simdjson::SUCCESS || value.is_null()) {
    return {};
  }
  return value.get(text) == simdjson::SUCCESS ? std::string(text) : simdjson::minify(value);
}

// A name for the disk, of what a server says.
std::string FileNameOf(const std::string& source, const std::string& name, const std::string& job) {
  std::string file = source + "-" + name + "-" + job;
  std::replace_if(
      file.begin(), file.end(),
      [](char c) {
        return !((c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'));
      },
      '-');
  constexpr size_t kLongest = 150;
  return file.substr(file.size() - std::min(file.size(), kLongest)) + ".geojson.gz";
}

bool IsNumber(const std::string& text) {
  return !text.empty() && text.size() < 20 &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Takes an entry of the list if it is of one of the folders.
void TakeEntry(const simdjson::dom::element& entry, const std::vector<std::string>& folders,
               const std::string& origin, FetchPlan& plan) {
  const std::string source = TextOf(entry, "source");
  const std::string job = TextOf(entry, "job");
  const bool isWanted =
      std::any_of(folders.begin(), folders.end(),
                  [&source](const std::string& folder) { return source.starts_with(folder); });
  if (!isWanted || TextOf(entry, "layer") != "addresses" || !IsNumber(job)) {
    return;
  }
  plan.files.push_back({origin + "/api/job/" + job + "/output/source.geojson.gz",
                        FileNameOf(source, TextOf(entry, "name"), job), TextOf(entry, "updated")});
  plan.facts.attribution += (plan.files.size() == 1 ? "" : ", ") + source;
}

}  // namespace

FetchPlan PlanOpenAddresses(SiteClient& client, const FetchRequest& request) {
  const std::vector<Place> places = ReadPlaces(request.places, [] { return std::string(); });
  if (std::ranges::any_of(places, &Place::IsCounty)) {
    throw FetchError(
        "OpenAddresses has sources of whole states, of counties and of cities beside "
        "each other: name states");
  }
  std::vector<std::string> folders;
  std::ranges::transform(places, std::back_inserter(folders), &FolderOf);
  const std::string list = client.Page(kList);
  simdjson::dom::parser parser(kMostList);
  simdjson::dom::array entries;
  if (parser.allocate(kMostList, kMostLevels) != simdjson::SUCCESS ||
      parser.parse(list).get(entries) != simdjson::SUCCESS) {
    throw FetchError(client.Origin() + kList + ": what comes is not a list of sources");
  }
  FetchPlan plan;
  plan.facts = {"OpenAddresses, " + NameOf(request.places),
                "",
                "each source its own; https://openaddresses.io tells it",
                "OpenAddresses (openaddresses.io) and its sources: ",
                false,
                {}};
  for (const simdjson::dom::element entry : entries) {
    TakeEntry(entry, folders, client.Origin(), plan);
  }
  if (plan.files.empty()) {
    throw FetchError(client.Origin() + kList + ": lists no addresses of " + NameOf(request.places));
  }
  std::ranges::sort(plan.files, {}, &RemoteFile::name);
  return plan;
}

}  // namespace postwright::postal
