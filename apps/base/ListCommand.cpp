#include "apps/base/ListCommand.h"

#include <chrono>
#include <cstdio>
#include <iostream>

#include "apps/base/BaseExit.h"
#include "common/BaseFolders.h"
#include "postal/base/AddressBase.h"
#include "postal/fetch/FetchJob.h"

namespace postwright::postal {
namespace {

// "6 days ago" of "2026-11-20"; empty for what is not a date.
std::string AgeOf(const std::string& date) {
  int year = 0;
  unsigned month = 0;
  unsigned day = 0;
  if (std::sscanf(date.c_str(), "%d-%u-%u", &year, &month, &day) != 3) {
    return {};
  }
  const std::chrono::sys_days then =
      std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day);
  const auto days =
      (std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now()) - then).count();
  return days <= 0 ? "today" : days == 1 ? "a day ago" : std::to_string(days) + " days ago";
}

std::string OrUnknown(const std::string& text) {
  return text.empty() ? "not stated" : text;
}

void WriteBase(const std::filesystem::path& file) {
  const AddressBase base(file);
  std::cout << file.string() << '\n';
  for (const BaseReader::Source& source : base.Borrow()->Sources()) {
    std::cout << "  " << source.name << "\n    imported     " << source.imported << ", "
              << AgeOf(source.imported) << "\n    rows         " << source.rows << ", "
              << source.leftOut << " left out\n    licence      " << OrUnknown(source.licence)
              << "\n    attribution  " << OrUnknown(source.attribution) << '\n';
  }
}

// A fetch that was not finished, which takes room on the disk.
void WriteHalfDone(const std::filesystem::path& folder) {
  const auto record = FetchRecord::Read(folder / "plan");
  if (!record) {
    return;
  }
  size_t there = 0;
  for (const RemoteFile& file : record->plan.files) {
    there += std::filesystem::exists(folder / file.name) ? 1 : 0;
  }
  std::cout << folder.string() << "\n  " << there << " of " << record->plan.files.size()
            << " files of " << record->plan.facts.name
            << " are fetched; the same 'postwright-base fetch' goes on\n";
}

}  // namespace

int RunList() {
  int end = kExitDone;
  const std::vector<std::filesystem::path> bases = FindBases();
  for (const std::filesystem::path& base : bases) {
    try {
      WriteBase(base);
    } catch (const std::exception& error) {
      std::cerr << "postwright-base: " << error.what() << '\n';
      end = kExitFailed;
    }
  }
  for (const std::filesystem::path& folder : FilesIn(BaseFolder(), ".fetch")) {
    WriteHalfDone(folder);
  }
  if (bases.empty()) {
    std::cout << "no base is there; 'postwright-base fetch texas' fetches one\n";
  }
  return std::cout.flush() ? end : kExitFailed;
}

}  // namespace postwright::postal
