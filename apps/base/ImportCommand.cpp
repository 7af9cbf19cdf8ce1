#include "apps/base/ImportCommand.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <iostream>

#include "apps/DefaultZips.h"
#include "apps/base/BaseExit.h"
#include "postal/import/Importer.h"
#include "postal/places/ZipList.h"

namespace postwright::postal {
namespace {

constexpr int64_t kMostRowsNamed = 20;
constexpr std::string_view kName = "postwright-base: ";
constexpr std::string_view kEraseLine = "\r\033[K";

std::atomic<bool> gStop = false;

void Stop(int) {
  gStop = true;
}

void StopOnSignals(void (*action)(int)) {
  for (const int number : {SIGINT, SIGTERM}) {
    std::signal(number, action);
  }
}

std::string Thousands(int64_t number) {
  std::string text = std::to_string(number);
  for (auto at = static_cast<int64_t>(text.size()) - 3; at > 0; at -= 3) {
    text.insert(static_cast<size_t>(at), 1, ',');
  }
  return text;
}

// How far the import is, on standard error: one line that is written again where that is a
// terminal, and a line every ten seconds where it is not.
class ImportProgress {
 public:
  explicit ImportProgress(bool quiet) : quiet_(quiet), terminal_(isatty(STDERR_FILENO) == 1) {}

  void Show(const Importer::Progress& progress) {
    const Clock::time_point now = Clock::now();
    rowsBefore_ = rowsBefore_ < 0 ? Rows(progress.counts) : rowsBefore_;
    const std::chrono::milliseconds period(terminal_ ? 200 : 10'000);
    if (quiet_ || now - shown_ < period) {
      return;
    }
    shown_ = now;
    const double seconds = std::chrono::duration<double>(now - begun_).count();
    const auto speed = static_cast<int64_t>(
        static_cast<double>(Rows(progress.counts) - rowsBefore_) / std::max(seconds, 0.001));
    char percent[16];
    std::snprintf(percent, sizeof percent, "%5.1f %%", 100 * progress.share);
    Line(std::string(percent) + ", " + Thousands(Rows(progress.counts)) + " rows, " +
         Thousands(speed) + " a second");
  }

  void Line(const std::string& text) {
    if (!quiet_) {
      std::cerr << (terminal_ ? kEraseLine : kName) << text << (terminal_ ? "" : "\n")
                << std::flush;
      drawn_ = terminal_;
    }
  }

  // A message on a line of its own.
  void Say(const std::string& text) {
    std::cerr << (drawn_ ? kEraseLine : "") << kName << text << '\n';
    drawn_ = false;
  }

 private:
  using Clock = std::chrono::steady_clock;

  static int64_t Rows(const ImportCounts& counts) {
    return counts.points + counts.ranges + counts.leftOut;
  }

  bool quiet_;
  bool terminal_;
  bool drawn_ = false;
  int64_t rowsBefore_ = -1;  // of an import that it goes on with
  Clock::time_point begun_ = Clock::now();
  Clock::time_point shown_ = begun_;
};

// Names the rows that are left out, as long as they are few.
class LeftOutRows {
 public:
  explicit LeftOutRows(ImportProgress& progress) : progress_(progress) {}

  void Name(const std::string& file, int64_t line, const std::string& why) {
    if (++count_ <= kMostRowsNamed) {
      progress_.Say(file + ":" + std::to_string(line) + ": left out: " + why);
    } else if (count_ == kMostRowsNamed + 1) {
      progress_.Say("more rows are left out; they are counted");
    }
  }

 private:
  ImportProgress& progress_;
  int64_t count_ = 0;
};

void Summarise(const Importer& importer, const ImportOptions& options, ImportProgress& progress) {
  const ImportCounts& counts = importer.Counts();
  progress.Say(options.base + ": " + Thousands(counts.points) + " addresses and " +
               Thousands(counts.ranges) + " ranges of " + importer.Source().name + ", " +
               Thousands(counts.leftOut) + " rows left out");
}

}  // namespace

int RunImport(const ImportOptions& options) {
  ZipList zips;
  zips.Load(DefaultZips());
  std::optional<ColumnMap> map;
  if (!options.map.empty()) {
    map = ColumnMap::Parse(options.map);
  }
  ImportProgress progress(options.quiet);
  LeftOutRows leftOut(progress);
  StopOnSignals(Stop);
  Importer importer(options.base,
                    {options.source, "", options.licence, options.attribution, !options.partial},
                    {options.files.begin(), options.files.end()}, map, zips,
                    options.restart ? Earlier::Discard : Earlier::GoOn);
  if (importer.GoesOn()) {
    progress.Say("goes on with the import that was stopped");
  }
  const auto end = importer.Run(
      gStop, {[&](const Importer::Progress& now) { progress.Show(now); },
              [&](const std::string& file, int64_t line, const std::string& why) {
                leftOut.Name(file, line, why);
              },
              [&] {
                StopOnSignals(SIG_DFL);  // from here on nothing is lost by an end at any moment
                progress.Line("sorting");
              }});
  if (end == Importer::End::Stopped) {
    progress.Say("stopped; " + options.base + " is as it was. The same command goes on");
    return kExitStopped;
  }
  Summarise(importer, options, progress);
  return kExitDone;
}

}  // namespace postwright::postal
