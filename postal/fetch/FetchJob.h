#ifndef POSTWRIGHT_POSTAL_FETCH_FETCHJOB_H_
#define POSTWRIGHT_POSTAL_FETCH_FETCHJOB_H_

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

#include "common/FileDescriptor.h"
#include "postal/fetch/FetchRecord.h"
#include "postal/fetch/SiteClient.h"

namespace postwright::postal {

// Fetches the files that a base is to be made of, and keeps them in BASE.fetch until it is.
//
//   FetchJob job("texas.base", request, client, manners, false);
//   job.Fetch(listener);
//   Importer importer("texas.base", job.Facts(), job.Files(), std::nullopt, zips);
//   if (importer.Run(stop, {}) == Importer::End::Done) job.Finish();
//
// Whatever ends the process: the same request goes on with the same files, those that are there
// without a server. One thread, and one process for a base.
class FetchJob {
 public:
  struct Progress {
    size_t files = 0;          // that are there,
    size_t of = 0;             // of so many
    uint64_t bytes = 0;        // of all that came in this run, and of the file under way
    uint64_t wholeOfFile = 0;  // the size of the file under way; 0: not known
    uint64_t bytesOfFile = 0;
  };

  // Asks the server which files those are, unless an earlier fetch has. `restart` has it forget
  // that, and what it has fetched. Throws FetchError also where another process fetches for the
  // base.
  FetchJob(const std::filesystem::path& base, const FetchRequest& request, SiteClient& client,
           const FetchManners& manners, bool restart);

  // Says whether files of an earlier fetch are there.
  bool GoesOn() const { return goesOn_; }

  // Fetches what is missing, file after file. Throws FetchError and FetchStopped.
  void Fetch(const std::function<void(const Progress&)>& onProgress);

  // The files, all of which are there then, and what is to be said of them.
  std::vector<std::filesystem::path> Files() const;
  const SourceFacts& Facts() const { return record_.plan.facts; }

  // The base is made: notes beside it what it was made of, and removes the files.
  void Finish();

  // Where the files for a base are, and where it is noted of what it was made.
  static std::filesystem::path FolderOf(const std::filesystem::path& base);
  static std::filesystem::path RecordOf(const std::filesystem::path& base);

 private:
  void Lock();
  void MakePlan(const FetchRequest& request);
  bool TakeEarlierPlan(const FetchRequest& request);

  std::filesystem::path base_;
  std::filesystem::path folder_;
  SiteClient& client_;
  const FetchManners& manners_;
  FetchRecord record_;
  FileBounds bounds_;
  bool goesOn_ = false;
  std::optional<FileDescriptor> lock_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_FETCH_FETCHJOB_H_
