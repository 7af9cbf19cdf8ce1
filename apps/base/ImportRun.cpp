#include "apps/base/ImportRun.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "apps/base/BaseExit.h"
#include "apps/base/StopSignals.h"

namespace postwright::postal {
namespace {

constexpr int64_t kMostRowsNamed = 20;

int64_t Rows(const ImportCounts& counts) {
  return counts.points + counts.ranges + counts.names + counts.leftOut;
}

// Names the rows that are left out, as long as they are few.
class LeftOutRows {
 public:
  explicit LeftOutRows(ProgressLine& progress) : progress_(progress) {}

  void Name(const std::string& file, int64_t line, const std::string& why) {
    if (++count_ <= kMostRowsNamed) {
      progress_.Say(file + ":" + std::to_string(line) + ": left out: " + why);
    } else if (count_ == kMostRowsNamed + 1) {
      progress_.Say("more rows are left out; they are counted");
    }
  }

 private:
  ProgressLine& progress_;
  int64_t count_ = 0;
};

void Show(const Importer::Progress& now, int64_t before, double seconds, ProgressLine& progress) {
  const int64_t rows = Rows(now.counts);
  const auto speed =
      static_cast<int64_t>(static_cast<double>(rows - before) / std::max(seconds, 0.001));
  char percent[16];
  std::snprintf(percent, sizeof percent, "%5.1f %%", 100 * now.share);
  progress.Draw(
      std::string(percent) + ", " + Thousands(rows) + " rows, " + Thousands(speed) + " a second",
      "reading", {{"percent", std::lround(100 * now.share)}, {"rows", rows}});
}

}  // namespace

int RunImporter(Importer& importer, const std::string& base, ProgressLine& progress) {
  LeftOutRows leftOut(progress);
  const int64_t before = Rows(importer.Counts());  // of an import that it goes on with
  const double begun = progress.Elapsed().count();
  if (importer.GoesOn()) {
    progress.Say("goes on with the import that was stopped");
  }
  const auto end = importer.Run(
      StopSignals::Flag(),
      {[&](const Importer::Progress& now) {
         if (progress.IsDue()) {
           Show(now, before, progress.Elapsed().count() - begun, progress);
         }
       },
       [&](const std::string& file, int64_t line, const std::string& why) {
         leftOut.Name(file, line, why);
       },
       [&] {
         StopSignals::Release();  // from here on nothing is lost by an end at any moment
         progress.Draw("sorting", "sorting");
       }});
  if (end == Importer::End::Stopped) {
    progress.Say("stopped; " + base + " is as it was. The same command goes on");
    return kExitStopped;
  }
  const ImportCounts& counts = importer.Counts();
  progress.Say(
      base + ": " + Thousands(counts.points) + " addresses and " + Thousands(counts.ranges) +
      " ranges of " + importer.Source().name + ", " +
      (counts.names > 0 ? Thousands(counts.names) + " names of places and streets, " : "") +
      Thousands(counts.leftOut) + " rows left out");
  return kExitDone;
}

}  // namespace postwright::postal
