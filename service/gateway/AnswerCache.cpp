#include "service/gateway/AnswerCache.h"

#include <fstream>
#include <string_view>

#include "postal/store/Sqlite.h"
#include "service/gateway/GatewayFault.h"
#include "service/upstream/VerifyXml.h"

namespace postwright::service {
namespace {

constexpr int64_t kApplication = 0x50574143;  // "PWAC"
constexpr std::chrono::milliseconds kPatience(250);
constexpr uint64_t kTrimEvery = 100;             // answers: counting them all takes a millisecond
constexpr std::chrono::seconds kRetryPause(10);  // before a file that failed is opened again
constexpr std::chrono::seconds kCallsKept = std::chrono::hours(24);

// An answer is kept as the reply that a client gets: readable, and with a reader that is there
// already. `saved` is in seconds since 1970.
constexpr const char* kCreate =
    "CREATE TABLE answers(key TEXT PRIMARY KEY, saved INTEGER NOT NULL, answer TEXT NOT NULL)"
    " WITHOUT ROWID;"
    "CREATE INDEX answers_saved ON answers(saved);"
    "CREATE TABLE calls(source TEXT NOT NULL, at INTEGER NOT NULL);"
    "CREATE INDEX calls_at ON calls(source, at);";

int64_t Seconds(Clock::Date date) {
  return std::chrono::duration_cast<std::chrono::seconds>(date.time_since_epoch()).count();
}

std::string DayOf(Clock::Date date) {
  constexpr size_t kDay = std::string_view("2026-11-25").size();
  return FormatDate(date).substr(0, kDay);
}

// An answer without a delivery line is that of a ZIP code.
ReplyForm FormOf(const AddressAnswer& answer) {
  const auto* const fields = std::get_if<ReplyFields>(&answer);
  const bool isOfZip = fields != nullptr && fields->address2.empty();
  return {.call = isOfZip ? AddressCall::City : AddressCall::Verify, .isLong = true};
}

[[noreturn]] void TurnDown(const std::string& name, const std::string& why) {
  throw postal::StoreError(name + ": " + why, SQLITE_MISMATCH);
}

// Says whether a cache may be opened at `name`: there is none yet, or the file there is marked as
// one. By its head alone (SQLite's file format, 1.3), since opening a database may change it.
bool IsCacheOrNone(const std::filesystem::path& name) {
  constexpr std::string_view kMagic("SQLite format 3\0", 16);
  constexpr size_t kHead = 100;
  constexpr size_t kMark = 68;
  std::string head(kHead, '\0');
  std::ifstream file(name, std::ios::binary);
  file.read(head.data(), static_cast<std::streamsize>(head.size()));
  if (file.gcount() == 0) {
    return true;  // also what cannot be read: opening it says why
  }
  int64_t mark = 0;
  for (size_t i = kMark; i < kMark + 4; ++i) {
    mark = mark * 256 + static_cast<unsigned char>(head[i]);
  }
  return head.starts_with(kMagic) && mark == kApplication;
}

// Brings a new file into form, marked as ours before all else, and turns down one of another form.
void Prepare(postal::SqliteFile& file, const std::string& name) {
  if (file.Number("PRAGMA application_id") != kApplication) {
    file.Run("PRAGMA application_id=" + std::to_string(kApplication));
  }
  file.Run("PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL; BEGIN IMMEDIATE");
  const int64_t schema = file.Number("PRAGMA user_version");
  const bool isNew = schema == 0 && file.Number("SELECT count(*) FROM sqlite_schema") == 0;
  if (isNew) {
    file.Run(kCreate);
    file.Run("PRAGMA user_version=" + std::to_string(AnswerCache::kSchema));
  }
  file.Run("COMMIT");
  if (!isNew && schema != AnswerCache::kSchema) {
    TurnDown(name,
             "was written by another version of this program; remove it or name another file");
  }
}

// Moves a damaged file, with what belongs to it, out of the way. Returns its new name.
std::filesystem::path MoveAside(const std::filesystem::path& file) {
  std::filesystem::path aside = file;
  aside += ".damaged";
  for (int number = 2; std::filesystem::exists(aside); ++number) {
    aside = file;
    aside += ".damaged-" + std::to_string(number);
  }
  for (const char* suffix : {"", "-wal", "-shm"}) {
    std::filesystem::path from = file;
    std::filesystem::path to = aside;
    std::error_code none;  // the two beside it need not be there
    std::filesystem::rename(from += suffix, to += suffix, none);
  }
  return aside;
}

}  // namespace

class AnswerCache::Reader {
 public:
  explicit Reader(const AnswerCache& cache) : file_(cache.file_, std::chrono::milliseconds(0)) {}

  // Returns when the answer was kept and its document.
  std::optional<std::pair<int64_t, std::string>> Find(const std::string& key) {
    if (!find_ && !HasAnswers()) {
      return std::nullopt;
    }
    if (!find_) {
      find_.emplace(file_, "SELECT saved, answer FROM answers WHERE key = ?");
    }
    postal::SqliteQuery query(*find_, key);
    if (!query.Step()) {
      return std::nullopt;
    }
    return std::pair(find_->Number(0), find_->Text(1));
  }

 private:
  // False of a file that could not be brought into form yet, which is the writer's to tell.
  bool HasAnswers() {
    return file_.Number("SELECT count(*) FROM sqlite_schema WHERE name = 'answers'") > 0;
  }

  postal::SqliteFile file_;
  std::optional<postal::SqliteStatement> find_;
};

class AnswerCache::Writer {
 public:
  explicit Writer(const AnswerCache& cache)
      : file_(Opened(cache.file_)),
        keep_(file_, "REPLACE INTO answers VALUES(?, ?, ?)"),
        trim_(file_, "DELETE FROM answers WHERE saved < ?"),
        shrink_(
            file_,
            "DELETE FROM answers WHERE key IN (SELECT key FROM answers ORDER BY saved LIMIT ?)"),
        note_(file_, "INSERT INTO calls VALUES(?, ?)"),
        takeBack_(
            file_,
            "DELETE FROM calls WHERE rowid = (SELECT max(rowid) FROM calls WHERE source = ?)"),
        forget_(file_, "DELETE FROM calls WHERE source = ? AND at < ?"),
        calls_(file_, "SELECT at FROM calls WHERE source = ? AND at > ? ORDER BY at") {}

  void Keep(const std::string& key, int64_t now, const std::string& answer) {
    postal::SqliteQuery(keep_, key, now, answer).Step();
  }

  // Lets go of what was kept before `oldest`, and of the oldest beyond `most`. Returns what is
  // left.
  int64_t Trim(int64_t oldest, int64_t most) {
    postal::SqliteQuery(trim_, oldest).Step();
    const int64_t size = file_.Number("SELECT count(*) FROM answers");
    if (size <= most) {
      return size;
    }
    postal::SqliteQuery(shrink_, size - most).Step();
    return most;
  }

  bool IsTrimDue() { return kept_++ % kTrimEvery == 0; }

  void NoteCall(const std::string& source, int64_t now) {
    postal::SqliteQuery(note_, source, now).Step();
    postal::SqliteQuery(forget_, source, now - kCallsKept.count()).Step();
  }

  void TakeBackCall(const std::string& source) { postal::SqliteQuery(takeBack_, source).Step(); }

  std::vector<Clock::Date> CallsSince(const std::string& source, int64_t since) {
    std::vector<Clock::Date> dates;
    for (postal::SqliteQuery query(calls_, source, since); query.Step();) {
      dates.emplace_back(std::chrono::seconds(calls_.Number(0)));
    }
    return dates;
  }

 private:
  static postal::SqliteFile Opened(const std::filesystem::path& name) {
    postal::SqliteFile file(name, kPatience);
    Prepare(file, name.string());
    return file;
  }

  postal::SqliteFile file_;
  postal::SqliteStatement keep_;
  postal::SqliteStatement trim_;
  postal::SqliteStatement shrink_;
  postal::SqliteStatement note_;
  postal::SqliteStatement takeBack_;
  postal::SqliteStatement forget_;
  postal::SqliteStatement calls_;
  uint64_t kept_ = 0;
};

AnswerCache::AnswerCache(std::filesystem::path file, std::string source, const Clock& clock,
                         const Limits& limits)
    : file_(std::move(file)), source_(std::move(source)), clock_(clock), limits_(limits) {
  if (!IsCacheOrNone(file_)) {
    TurnDown(file_.string(), "is not a cache of answers; name another file");
  }
  try {
    Open();
  } catch (const postal::StoreError& error) {
    if (error.IsDamage()) {
      Rebuild(error.what());
    } else if (error.MayPass()) {
      NoteFailure(error.what());
    } else {
      throw;
    }
  }
}

void AnswerCache::Open() {
  writer_.connection = std::make_unique<Writer>(*this);
  reader_.connection = std::make_unique<Reader>(*this);
  size_ = writer_.connection->Trim(Seconds(clock_.Today() - limits_.lifetime), limits_.answers);
}

void AnswerCache::Rebuild(const std::string& damage) {
  writer_.connection.reset();
  reader_.connection.reset();
  const std::filesystem::path aside = MoveAside(file_);
  Open();
  repair_ = damage + "; it is now " + aside.string() + ", and a new cache is begun";
}

AnswerCache::~AnswerCache() = default;

std::optional<AnswerCache::Kept> AnswerCache::Find(const std::string& key) {
  std::optional<std::pair<int64_t, std::string>> row;
  Try(reader_, [&](Reader& reader) { row = reader.Find(source_ + '\n' + key); });
  if (!row) {
    return std::nullopt;
  }
  std::vector<postal::Candidate> candidates;
  const UpstreamAnswer answer = VerifyXml::Read(row->second, &candidates);
  const auto* const rejection = std::get_if<postal::Rejection>(&answer);
  if (!IsFresh(row->first, rejection != nullptr)) {
    return std::nullopt;
  }
  const auto* const fields = std::get_if<ReplyFields>(&answer);
  if (rejection == nullptr && fields == nullptr) {
    return std::nullopt;
  }
  hitAges_.Note(static_cast<double>(Seconds(clock_.Today()) - row->first));
  Kept kept = rejection != nullptr ? Kept(*rejection) : Kept(*fields);
  kept.candidates = std::move(candidates);
  kept.source = {ReplySource::Kind::Cache, source_,
                 DayOf(Clock::Date(std::chrono::seconds(row->first)))};
  return kept;
}

void AnswerCache::Keep(const std::string& key, const Kept& answer) {
  const std::string text = VerifyReply::Compose({{std::nullopt, answer}}, FormOf(answer));
  const int64_t now = Seconds(clock_.Today());
  Try(writer_, [&](Writer& writer) {
    writer.Keep(source_ + '\n' + key, now, text);
    ++size_;
    if (writer.IsTrimDue()) {
      size_ = writer.Trim(now - limits_.lifetime.count(), limits_.answers);
    }
  });
}

void AnswerCache::NoteCall() {
  Try(writer_, [&](Writer& writer) { writer.NoteCall(source_, Seconds(clock_.Today())); });
}

void AnswerCache::TakeBackCall() {
  Try(writer_, [&](Writer& writer) { writer.TakeBackCall(source_); });
}

std::vector<Clock::Date> AnswerCache::CallsWithin(std::chrono::seconds stretch) {
  std::vector<Clock::Date> calls;
  Try(writer_, [&](Writer& writer) {
    calls = writer.CallsSince(source_, Seconds(clock_.Today() - stretch));
  });
  return calls;
}

std::string AnswerCache::LastFailure() const {
  const std::lock_guard lock(failureMutex_);
  return lastFailure_;
}

// What fails here costs one more call of the upstream; the answers stay right.
template <typename Connection, typename Work>
void AnswerCache::Try(Side<Connection>& side, Work work) {
  const std::lock_guard lock(side.mutex);
  try {
    if (side.connection == nullptr) {
      if (clock_.Now() < side.retryAt) {
        return;
      }
      side.retryAt = clock_.Now() + kRetryPause;
      side.connection = std::make_unique<Connection>(*this);
    }
    work(*side.connection);
  } catch (const std::exception& error) {
    NoteFailure(error.what());
  }
}

void AnswerCache::NoteFailure(const std::string& what) {
  ++failures_;
  const std::lock_guard lock(failureMutex_);
  lastFailure_ = what;
}

// An answer of the future was kept while the system's clock was wrong: nobody knows its age.
bool AnswerCache::IsFresh(int64_t saved, bool isRejection) const {
  const int64_t age = Seconds(clock_.Today()) - saved;
  const auto lifetime =
      isRejection ? std::min(limits_.lifetime, limits_.rejectionLifetime) : limits_.lifetime;
  return age >= 0 && age < lifetime.count();
}

}  // namespace postwright::service
