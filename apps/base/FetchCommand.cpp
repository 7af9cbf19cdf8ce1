#include "apps/base/FetchCommand.h"

#include <algorithm>
#include <cmath>
#include <fstream>

#include "apps/DefaultZips.h"
#include "apps/base/BaseExit.h"
#include "apps/base/ImportRun.h"
#include "apps/base/StopSignals.h"
#include "common/BaseFolders.h"
#include "common/Loopback.h"
#include "common/SmallText.h"
#include "common/UrlParts.h"
#include "postal/fetch/FetchError.h"
#include "postal/fetch/FetchJob.h"
#include "postal/fetch/FetchPlaces.h"
#include "postal/places/ZipList.h"

namespace postwright::postal {
namespace {

std::string ReadToken(const std::string& file) {
  if (file.empty()) {
    return {};
  }
  std::ifstream input(file);
  std::string line;
  std::getline(input, line);
  const std::string token(Trim(line));
  if (token.empty() || std::any_of(token.begin(), token.end(),
                                   [](unsigned char c) { return c <= ' ' || c > '~'; })) {
    throw FetchError(file + ": has no token in its first line");
  }
  return token;
}

std::string Megabytes(uint64_t bytes) {
  return Thousands(static_cast<int64_t>((bytes + 500'000) / 1'000'000)) + " MB";
}

std::string TimeLeft(double seconds) {
  const auto minutes = static_cast<int64_t>(seconds / 60) + 1;
  return minutes < 120 ? std::to_string(minutes) + " min left"
                       : std::to_string(minutes / 60) + " h left";
}

// How much of a fetch is done, 0 to 1, by its files and the bytes of the one under way.
double ShareOf(const FetchJob::Progress& now) {
  const double ofFile = now.wholeOfFile == 0 ? 0
                                             : static_cast<double>(now.bytesOfFile) /
                                                   static_cast<double>(now.wholeOfFile);
  return now.of == 0 ? 0 : (static_cast<double>(now.files) + ofFile) / static_cast<double>(now.of);
}

// Tells files and bytes, and how long the rest will take, as far as that can be told.
void Show(const FetchJob::Progress& now, double seconds, ProgressLine& progress) {
  constexpr double kLeast = 10;  // seconds; before, nothing can be told
  const double share = ShareOf(now);
  ProgressLine::Figures figures = {{"percent", std::lround(100 * share)},
                                   {"files", static_cast<int64_t>(now.files)},
                                   {"of", static_cast<int64_t>(now.of)},
                                   {"bytes", static_cast<int64_t>(now.bytes)}};
  std::string text = std::to_string(now.files) + " of " + std::to_string(now.of) + " files, " +
                     Megabytes(now.bytes) + " fetched";
  if (now.of == 1 && now.wholeOfFile > 0) {
    text += " of " + Megabytes(now.wholeOfFile);
  }
  if (share > 0 && seconds > kLeast) {
    const double left = seconds / share * (1 - share);
    text += ", some " + TimeLeft(left);
    figures.emplace_back("secondsLeft", std::lround(left));
  }
  progress.Draw(text, "fetching", figures);
}

// A server, and how it is asked.
class Visit {
 public:
  Visit(const FetchRequest& request, const std::string& tokenFile,
        const std::vector<std::string>& hosts, ProgressLine& progress)
      : kind_(*FindFetchKind(request.from)), client_(SiteOf(request, tokenFile, hosts), manners_) {
    if (IsLoopback(SplitUrl(client_.Origin())->host)) {
      manners_.pause = {};  // nobody else is kept waiting
    }
    manners_.wait = &StopSignals::Wait;
    manners_.stop = &StopSignals::Flag();
    manners_.onTrouble = [&progress](const std::string& what) { progress.Say(what); };
  }

  const FetchKind& Kind() const { return kind_; }
  SiteClient& Client() { return client_; }
  const FetchManners& Manners() const { return manners_; }

 private:
  Site SiteOf(const FetchRequest& request, const std::string& tokenFile,
              const std::vector<std::string>& hosts) const {
    Site site{request.mirror.empty() ? kind_.origin : request.mirror, kind_.hosts,
              ReadToken(tokenFile)};
    if (site.origin.ends_with('/')) {
      site.origin.pop_back();
    }
    if (!request.mirror.empty()) {
      site.hosts.clear();
    }
    site.hosts.insert(site.hosts.end(), hosts.begin(), hosts.end());
    return site;
  }

  const FetchKind& kind_;
  FetchManners manners_;
  SiteClient client_;
};

int FetchAndImport(const FetchOptions& options, const std::string& base, ProgressLine& progress) {
  StopSignals::Catch();  // an earlier import may have let go of them
  Visit visit(options.request, options.tokenFile, options.hosts, progress);
  FetchJob job(base, options.request, visit.Client(), visit.Manners(), options.restart);
  if (job.GoesOn()) {
    progress.Say("goes on with the fetch that was not finished");
  }
  const double begun = progress.Elapsed().count();
  job.Fetch([&](const FetchJob::Progress& now) {
    if (progress.IsDue()) {
      Show(now, progress.Elapsed().count() - begun, progress);
    }
  });
  ZipList zips;
  zips.Load(DefaultZips());
  Importer importer(base, job.Facts(), job.Files(), std::nullopt, zips,
                    options.restart ? Earlier::Discard : Earlier::GoOn);
  const int end = RunImporter(importer, base, progress);
  if (end == kExitDone) {
    job.Finish();
  }
  return end;
}

// Catches what a stop by a signal throws on its way.
template <typename Work>
int UnlessStopped(ProgressLine& progress, Work work) {
  try {
    StopSignals::Catch();
    return work();
  } catch (const FetchStopped& stopped) {
    progress.Say(stopped.what());
    return kExitStopped;
  }
}

int UpdateBase(const std::string& base, const UpdateOptions& options, ProgressLine& progress) {
  const auto record = FetchRecord::Read(FetchJob::RecordOf(base));
  if (!record) {
    throw FetchError(base + ": was not fetched; 'postwright-base fetch' or import makes it again");
  }
  const FetchRequest& request = record->request;
  Visit visit(request, options.tokenFile, options.hosts, progress);
  if (!record->IsOutdatedBy(visit.Kind().plan(visit.Client(), request))) {
    progress.Say(base + ": nothing is newer");
    return kExitDone;
  }
  return FetchAndImport({request, base, options.tokenFile, options.hosts, false, options.progress},
                        base, progress);
}

}  // namespace

int RunFetch(const FetchOptions& options) {
  ProgressLine progress(options.progress);
  return UnlessStopped(progress, [&] {
    const std::string base =
        options.base.empty() ? (BaseFolder() / (NameOf(options.request.places) + ".base")).string()
                             : options.base;
    return FetchAndImport(options, base, progress);
  });
}

int RunUpdate(const UpdateOptions& options) {
  ProgressLine progress(options.progress);
  return UnlessStopped(progress, [&] {
    std::vector<std::string> bases = options.bases;
    if (bases.empty()) {
      for (const std::filesystem::path& record : FilesIn(BaseFolder(), ".fetched")) {
        bases.push_back(std::filesystem::path(record).replace_extension());
      }
    }
    if (bases.empty()) {
      progress.Say("no base was fetched; 'postwright-base fetch texas' fetches one");
    }
    int end = kExitDone;
    for (size_t i = 0; i < bases.size() && end == kExitDone; ++i) {
      end = UpdateBase(bases[i], options, progress);
    }
    return end;
  });
}

}  // namespace postwright::postal
