#ifndef POSTWRIGHT_SERVICE_GATEWAY_ANSWERCACHE_H_
#define POSTWRIGHT_SERVICE_GATEWAY_ANSWERCACHE_H_

#include <atomic>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "common/Histogram.h"
#include "postal/places/Rejection.h"
#include "service/protocol/VerifyReply.h"
#include "service/upstream/Clock.h"

namespace postwright::service {

// Keeps an upstream's answers, and when it was called, in an SQLite file, over restarts.
//
//   AnswerCache cache("answers.sqlite", "postal-v3 https://apis.usps.com", clock, {});
//   cache.Keep(KeyOf(normal), fields);
//   cache.Find(KeyOf(normal));   // the same fields, for thirty days
//
// A file that fails (no room on the disk, a lock of another program, damage) counts as none:
// what cannot be kept is not kept, what cannot be read is not there, and the count of failures
// tells. Several processes may use one file. Borrows the clock. Any number of threads at once;
// finding waits neither for keeping nor for another process.
class AnswerCache {
 public:
  static constexpr int kSchema = 1;  // the file's user_version

  struct Limits {
    std::chrono::seconds lifetime = std::chrono::hours(24 * 30);
    // An address that was turned down may be there tomorrow.
    std::chrono::seconds rejectionLifetime = std::chrono::hours(24);
    int64_t answers = 200'000;  // about 150 MB; a hundred more, and the oldest go
  };

  using Kept = AddressAnswer;  // never a fault

  // Opens `file` or creates it, readable by its owner alone. Answers of another `source` are not
  // found, only counted and aged. A cache that is damaged is renamed, and a new one begun in its
  // place. Throws StoreError for a file that cannot be opened, or belongs to another program, which
  // is left as it is, or to another version of this one. One that is locked or on a full disk is
  // opened later.
  AnswerCache(std::filesystem::path file, std::string source, const Clock& clock,
              const Limits& limits);
  ~AnswerCache();
  AnswerCache(const AnswerCache&) = delete;
  AnswerCache& operator=(const AnswerCache&) = delete;

  // Returns what was kept under `key` within its lifetime, with the day on which it was.
  std::optional<Kept> Find(const std::string& key);

  // Keeps an answer in the place of an older one. Waits for another process for a quarter of a
  // second at most.
  void Keep(const std::string& key, const Kept& answer);

  // Notes a call of the upstream at this moment, before it is made, so that who is killed during it
  // has noted it. TakeBackCall drops the last one, which was not made. CallsWithin returns those of
  // the last `stretch`, of a day at most. All wait as Keep does.
  void NoteCall();
  void TakeBackCall();
  std::vector<Clock::Date> CallsWithin(std::chrono::seconds stretch);

  // Returns about how many answers the file holds, of all sources.
  int64_t Size() const { return size_; }

  // The age, in seconds, of each answer that was found.
  const Histogram& HitAges() const { return hitAges_; }
  uint64_t Failures() const { return failures_; }
  std::string LastFailure() const;  // empty where there was none
  const std::filesystem::path& File() const { return file_; }

  // Returns what became of a cache that was damaged; empty where it was not.
  const std::string& Repair() const { return repair_; }

 private:
  class Reader;
  class Writer;

  // A connection, or the moment until which none is tried.
  template <typename Connection>
  struct Side {
    std::mutex mutex;
    std::unique_ptr<Connection> connection;
    Clock::Time retryAt = Clock::Time::min();
  };

  void Open();
  void Rebuild(const std::string& damage);
  template <typename Connection, typename Work>
  void Try(Side<Connection>& side, Work work);
  void NoteFailure(const std::string& what);
  bool IsFresh(int64_t saved, bool isRejection) const;

  const std::filesystem::path file_;
  const std::string source_;
  const Clock& clock_;
  const Limits limits_;
  Side<Reader> reader_;
  Side<Writer> writer_;
  std::string repair_;
  std::atomic<int64_t> size_ = 0;
  std::atomic<uint64_t> failures_ = 0;
  Histogram hitAges_{{3600, 86400, 7 * 86400, 14 * 86400, 21 * 86400, 30 * 86400}};
  mutable std::mutex failureMutex_;
  std::string lastFailure_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_GATEWAY_ANSWERCACHE_H_
