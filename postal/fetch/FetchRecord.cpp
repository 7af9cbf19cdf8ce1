#include "postal/fetch/FetchRecord.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>

#include "postal/fetch/FetchError.h"

namespace postwright::postal {
namespace {

constexpr const char* kHeading = "postwright-fetch 1";

// A value without what would end it.
std::string Plain(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
  return text;
}

std::vector<std::string> Split(const std::string& line) {
  std::vector<std::string> cells = {""};
  for (const char c : line) {
    if (c == '\t') {
      cells.emplace_back();
    } else {
      cells.back() += c;
    }
  }
  cells.resize(std::max<size_t>(cells.size(), 4));
  return cells;
}

void Take(const std::vector<std::string>& cells, FetchRecord& record) {
  const std::string& name = cells[0];
  const std::string& value = cells[1];
  FetchRequest& request = record.request;
  FetchPlan& plan = record.plan;
  if (name == "from") {
    request.from = value;
  } else if (name == "place") {
    request.places.push_back(value);
  } else if (name == "asked-year") {
    request.year = value;
  } else if (name == "mirror") {
    request.mirror = value;
  } else if (name == "year") {
    plan.year = value;
  } else if (name == "state") {
    plan.facts.states.push_back(value);
  } else if (name == "source") {
    plan.facts.name = value;
    plan.facts.whole = cells[2] == "whole";
  } else if (name == "licence") {
    plan.facts.licence = value;
  } else if (name == "attribution") {
    plan.facts.attribution = value;
  } else if (name == "file") {
    plan.files.push_back({cells[2], value, cells[3]});
  }
}

// A name that a file of the fetch's own folder may have.
bool IsFileName(const std::string& name) {
  return !name.empty() && name.front() != '.' && name.find('/') == std::string::npos;
}

}  // namespace

bool FetchRecord::IsOutdatedBy(const FetchPlan& now) const {
  return plan.year != now.year ||
         !std::ranges::equal(plan.files, now.files, [](const RemoteFile& a, const RemoteFile& b) {
           return a.name == b.name && a.stamp == b.stamp;
         });
}

void FetchRecord::Write(const std::filesystem::path& file) const {
  const std::filesystem::path made = file.string() + ".new";
  std::ofstream out(made);
  const auto line = [&out](const char* name, const std::string& value) {
    out << name << '\t' << Plain(value) << '\n';
  };
  out << kHeading << '\n';
  line("from", request.from);
  for (const std::string& place : request.places) {
    line("place", place);
  }
  line("asked-year", request.year);
  line("mirror", request.mirror);
  line("year", plan.year);
  for (const std::string& state : plan.facts.states) {
    line("state", state);
  }
  out << "source\t" << Plain(plan.facts.name) << '\t' << (plan.facts.whole ? "whole" : "partial")
      << '\n';
  line("licence", plan.facts.licence);
  line("attribution", plan.facts.attribution);
  for (const RemoteFile& remote : plan.files) {
    out << "file\t" << Plain(remote.name) << '\t' << Plain(remote.url) << '\t'
        << Plain(remote.stamp) << '\n';
  }
  if (!out.flush() || std::rename(made.c_str(), file.c_str()) != 0) {
    throw FetchError(file.string() + ": cannot be written: " + std::strerror(errno));
  }
}

std::optional<FetchRecord> FetchRecord::Read(const std::filesystem::path& file) {
  std::ifstream input(file);
  std::string line;
  if (!std::getline(input, line) || line != kHeading) {
    return std::nullopt;
  }
  FetchRecord record;
  while (std::getline(input, line)) {
    Take(Split(line), record);
  }
  const bool isSound = FindFetchKind(record.request.from) != nullptr &&
                       !record.request.places.empty() && !record.plan.files.empty() &&
                       std::ranges::all_of(record.plan.files, IsFileName, &RemoteFile::name);
  return isSound ? std::optional(record) : std::nullopt;
}

}  // namespace postwright::postal
