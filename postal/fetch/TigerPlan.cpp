#include "postal/fetch/TigerPlan.h"

#include <algorithm>
#include <functional>

#include "common/AsciiText.h"
#include "postal/fetch/FetchError.h"
#include "postal/fetch/FetchPlaces.h"
#include "postal/fetch/IndexPage.h"

namespace postwright::postal {
namespace {

constexpr const char* kRoot = "/geo/tiger/";
constexpr const char* kCounties = "/geo/docs/reference/codes2020/national_county2020.txt";
constexpr std::string_view kYearFolder = "TIGER";
constexpr size_t kYearDigits = 4;

std::string FolderOf(const std::string& year) {
  return std::string(kRoot) + "TIGER" + year + "/ADDRFEAT/";
}

// The entries of a folder. A page without any is what the server says when it is busy.
std::vector<IndexEntry> ListFolder(SiteClient& client, const std::string& path) {
  for (int failures = 0;;) {
    const auto page = client.Page(path, SiteClient::Missing::IsNone);
    if (!page) {
      return {};
    }
    std::vector<IndexEntry> entries = ReadIndexPage(*page);
    if (!entries.empty()) {
      return entries;
    }
    client.WaitAfter(client.Origin() + path, "what comes is not a list of files",
                     std::chrono::seconds(0), failures);
  }
}

// The published years, the newest first.
std::vector<std::string> ListYears(SiteClient& client) {
  std::vector<std::string> years;
  for (const IndexEntry& entry : ListFolder(client, kRoot)) {
    const std::string_view name = entry.name;
    const std::string_view year =
        name.substr(std::min(kYearFolder.size(), name.size()), kYearDigits);
    if (name.starts_with(kYearFolder) && name.size() == kYearFolder.size() + kYearDigits + 1 &&
        AllDigits(year)) {
      years.emplace_back(year);
    }
  }
  std::sort(years.begin(), years.end(), std::greater<>());
  return years;
}

// "48453" of "tl_2024_48453_addrfeat.zip"; empty for another file.
std::string CountyOf(const std::string& name, const std::string& year) {
  const std::string before = "tl_" + year + "_";
  const std::string behind = "_addrfeat.zip";
  constexpr size_t kCounty = 5;
  return name.size() == before.size() + kCounty + behind.size() && name.starts_with(before) &&
                 name.ends_with(behind)
             ? name.substr(before.size(), kCounty)
             : "";
}

void TakeFiles(const std::vector<IndexEntry>& entries, const std::string& folder,
               const Place& place, FetchPlan& plan) {
  const size_t before = plan.files.size();
  for (const IndexEntry& entry : entries) {
    const std::string county = CountyOf(entry.name, plan.year);
    if (!county.empty() && county.starts_with(place.prefix)) {
      plan.files.push_back({folder + entry.name, entry.name, entry.stamp});
    }
  }
  if (plan.files.size() == before) {
    throw FetchError(folder + ": has no file of " + place.name);
  }
}

}  // namespace

FetchPlan PlanTiger(SiteClient& client, const FetchRequest& request) {
  const std::vector<Place> places =
      ReadPlaces(request.places, [&client] { return client.Page(kCounties); });
  const std::vector<std::string> years =
      request.year.empty() ? ListYears(client) : std::vector<std::string>{request.year};
  for (const std::string& year : years) {
    const std::vector<IndexEntry> entries = ListFolder(client, FolderOf(year));
    if (entries.empty()) {
      continue;  // a year's first days: its folder is there, and not yet what we want
    }
    FetchPlan plan;
    plan.year = year;
    for (const Place& place : places) {
      TakeFiles(entries, client.Origin() + FolderOf(year), place, plan);
    }
    std::ranges::sort(plan.files, {}, &RemoteFile::name);
    const auto again = std::unique(
        plan.files.begin(), plan.files.end(),
        [](const RemoteFile& one, const RemoteFile& other) { return one.name == other.name; });
    plan.files.erase(again, plan.files.end());
    const bool isAll = places.size() == States().size();
    plan.facts = {"TIGER/Line, " + NameOf(request.places),  "",    "public domain",
                  "U.S. Census Bureau, TIGER/Line " + year, isAll, {}};
    return plan;
  }
  throw FetchError(client.Origin() + kRoot + ": has no address ranges (ADDRFEAT)" +
                   (request.year.empty() ? "" : " of the year " + request.year));
}

}  // namespace postwright::postal
