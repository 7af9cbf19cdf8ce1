#include "postal/fetch/FetchJob.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <cstring>

#include "postal/fetch/FetchError.h"

namespace postwright::postal {
namespace {

constexpr const char* kPlan = "plan";
constexpr const char* kLock = "lock";

bool IsSame(const FetchRequest& a, const FetchRequest& b) {
  return a.from == b.from && a.places == b.places && a.year == b.year && a.mirror == b.mirror;
}

}  // namespace

std::filesystem::path FetchJob::FolderOf(const std::filesystem::path& base) {
  return base.string() + ".fetch";
}

std::filesystem::path FetchJob::RecordOf(const std::filesystem::path& base) {
  return base.string() + ".fetched";
}

FetchJob::FetchJob(const std::filesystem::path& base, const FetchRequest& request,
                   SiteClient& client, const FetchManners& manners, bool restart)
    : base_(base),
      folder_(FolderOf(base)),
      client_(client),
      manners_(manners),
      bounds_(FindFetchKind(request.from)->bounds) {
  std::filesystem::create_directories(folder_);
  Lock();
  if (restart) {
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      if (entry.path().filename() != kLock) {
        std::filesystem::remove_all(entry.path());
      }
    }
  }
  if (!TakeEarlierPlan(request)) {
    MakePlan(request);
  }
}

void FetchJob::MakePlan(const FetchRequest& request) {
  try {
    record_ = {request, FindFetchKind(request.from)->plan(client_, request)};
  } catch (...) {
    std::filesystem::remove_all(folder_);  // there is nothing in it
    throw;
  }
  record_.Write(folder_ / kPlan);
}

void FetchJob::Lock() {
  const std::filesystem::path file = folder_ / kLock;
  lock_.emplace(open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR));
  if (*lock_ < 0) {
    throw FetchError(file.string() + ": cannot be written: " + std::strerror(errno));
  }
  if (flock(*lock_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    throw FetchError(base_.string() + ": another fetch for it is under way");
  }
}

bool FetchJob::TakeEarlierPlan(const FetchRequest& request) {
  const auto earlier = FetchRecord::Read(folder_ / kPlan);
  if (!earlier) {
    return false;
  }
  if (!IsSame(earlier->request, request)) {
    throw FetchError(folder_.string() +
                     ": holds what another command has fetched and not finished; give that one "
                     "again, or --restart to start over");
  }
  record_ = *earlier;
  goesOn_ = true;
  return true;
}

void FetchJob::Fetch(const std::function<void(const Progress&)>& onProgress) {
  Progress progress;
  progress.of = record_.plan.files.size();
  uint64_t before = 0;  // what came of the files that are done
  for (const RemoteFile& file : record_.plan.files) {
    progress.bytesOfFile = progress.wholeOfFile = 0;
    uint64_t first = 0;
    bool hasBegun = false;
    FetchFile(client_, manners_, file, folder_, bounds_, [&](uint64_t bytes, uint64_t whole) {
      first = hasBegun ? std::min(first, bytes) : bytes;
      hasBegun = true;
      progress.bytes = before + bytes - first;
      progress.bytesOfFile = bytes;
      progress.wholeOfFile = whole;
      if (onProgress) {
        onProgress(progress);
      }
    });
    before = progress.bytes;
    ++progress.files;
  }
}

std::vector<std::filesystem::path> FetchJob::Files() const {
  std::vector<std::filesystem::path> files;
  for (const RemoteFile& file : record_.plan.files) {
    files.push_back(folder_ / file.name);
  }
  return files;
}

void FetchJob::Finish() {
  record_.Write(RecordOf(base_));
  std::filesystem::remove_all(folder_);
}

}  // namespace postwright::postal
