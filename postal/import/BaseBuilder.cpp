#include "postal/import/BaseBuilder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <ctime>

#include "common/AsciiText.h"
#include "common/FileDescriptor.h"
#include "common/NewFileMode.h"
#include "postal/base/BaseFile.h"
#include "postal/base/BaseSchema.h"
#include "postal/base/HouseNumber.h"
#include "postal/places/CityName.h"

namespace postwright::postal {
namespace {

constexpr std::chrono::milliseconds kPatience(
    0);  // a second import of the same base is told at once
constexpr size_t kMostStreetsKept = 500'000;
constexpr std::string_view kNoZip4 = "0000";  // is how the National Address Database writes "none"

std::string Today() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&now, &parts);
  char text[sizeof "2026-01-25"];
  return {text, std::strftime(text, sizeof text, "%Y-%m-%d", &parts)};
}

void Attach(SqliteFile& file, const std::string& other, const std::string& name) {
  SqliteStatement attach(file, "ATTACH ? AS " + name);
  attach.Bind(1, other);
  attach.Step();
}

// Makes sure that what was written is on the disk before the file takes another's place.
void FlushToDisk(const std::string& file) {
  const FileDescriptor opened(open(file.c_str(), O_RDONLY | O_CLOEXEC));
  if (opened < 0 || fsync(opened) != 0) {
    throw ImportError(file + ": cannot be written to the disk: " + std::strerror(errno));
  }
}

// The mode that a new file gets: a base is no secret, and the service may run as another user.
void LetOthersRead(const std::string& file) {
  chmod(file.c_str(), NewFileMode());
}

// A file that is being made: it goes, with what SQLite has put beside it, unless it is renamed.
class Unfinished {
 public:
  // Removes one that a killed process has left.
  explicit Unfinished(std::string file) : file_(std::move(file)) {
    for (const char* ending : kEndings) {
      std::filesystem::remove(file_ + ending);
    }
  }
  ~Unfinished() {
    std::error_code none;
    for (const char* ending : kEndings) {
      std::filesystem::remove(file_ + ending, none);
    }
  }
  Unfinished(const Unfinished&) = delete;
  Unfinished& operator=(const Unfinished&) = delete;

 private:
  static constexpr const char* kEndings[] = {"", "-journal", "-wal", "-shm"};

  const std::string file_;
};

void Rename(const std::string& from, const std::string& to) {
  if (std::rename(from.c_str(), to.c_str()) != 0) {
    throw ImportError(from + ": cannot be renamed to " + to + ": " + std::strerror(errno));
  }
}

}  // namespace

BaseBuilder::BaseBuilder(const std::filesystem::path& base, const SourceFacts& source,
                         const std::string& job, const ZipList& zips, Earlier earlier)
    : base_(base), source_(source), reader_(zips), stage_(Path(".import"), kPatience) {
  if (std::filesystem::exists(base_)) {
    BaseFile::Check(base_);
  }
  OpenStage(earlier);
  if (stage_.Number("SELECT count(*) FROM sqlite_schema WHERE name='place'") == 0) {
    Begin(job);
  } else {
    GoOn(job);
  }
  addPoint_.emplace(stage_, "INSERT INTO staged_point VALUES(?,?,?,?)");
  addRange_.emplace(stage_, "INSERT INTO staged_range VALUES(?,?,?,?,?)");
  findStreet_.emplace(stage_,
                      "SELECT id FROM street WHERE zip=? AND key=? AND name=? AND predirectional=? "
                      "AND suffix=? AND postdirectional=? AND urbanization=?");
  addStreet_.emplace(stage_, "INSERT OR IGNORE INTO street VALUES(NULL,?,?,?,?,?,?,?)");
  addCity_.emplace(stage_, "INSERT OR IGNORE INTO city VALUES(?,?,?,?)");
  addZip_.emplace(stage_, "INSERT OR IGNORE INTO zip VALUES(?,?)");
}

// The lock is held until the end: nobody else may gather rows for the same base, nor throw away
// what is gathered.
void BaseBuilder::OpenStage(Earlier earlier) {
  stage_.Run("PRAGMA locking_mode=EXCLUSIVE");
  if (earlier == Earlier::Discard) {
    Lock([this] { stage_.Empty(); });
  }
  Lock([this] {
    stage_.Run("PRAGMA synchronous=NORMAL; PRAGMA cache_size=-32768; BEGIN IMMEDIATE");
  });
}

void BaseBuilder::Lock(const std::function<void()>& step) const {
  try {
    step();
  } catch (const StoreError& error) {
    if (std::strstr(error.what(), "locked") == nullptr) {
      throw;
    }
    throw ImportError(base_.string() + ": another import into it is under way");
  }
}

// In one transaction: a stage that has its tables has its place, too, and can be gone on with.
void BaseBuilder::Begin(const std::string& job) {
  const bool isUpdate = std::filesystem::exists(base_);
  if (isUpdate) {
    stage_.Run("COMMIT");  // nothing can be attached within one; the lock stays
    Attach(stage_, base_.string(), "old");
    stage_.Run("BEGIN");
  }
  stage_.Run(std::string(BaseSchema::kTables));
  stage_.Run(std::string(BaseSchema::kStage));
  if (isUpdate) {
    CopyStreets();
  }
  SqliteStatement place(stage_, "INSERT INTO place VALUES(?,?,0,0,1,0,0,0)");
  SqliteQuery(place, job, sourceId_).Step();
  stage_.Run(isUpdate ? "COMMIT; DETACH old; BEGIN" : "COMMIT; BEGIN");
}

// Streets keep their numbers, so that what stays of the base can be taken over as it is.
void BaseBuilder::CopyStreets() {
  stage_.Run("INSERT INTO main.street SELECT * FROM old.street");
  SqliteStatement known(stage_,
                        "SELECT coalesce((SELECT id FROM old.source WHERE name=?),"
                        "(SELECT coalesce(max(id),0)+1 FROM old.source))");
  known.Bind(1, source_.name);
  known.Step();
  sourceId_ = known.Number(0);
}

void BaseBuilder::GoOn(const std::string& job) {
  SqliteStatement place(stage_, "SELECT * FROM place");
  place.Step();
  if (place.Text(0) != job) {
    throw ImportError(Path(".import") +
                      ": holds a half-done import of another source or of files that have changed "
                      "since; give the same command again, or --restart to begin anew");
  }
  sourceId_ = place.Number(1);
  place_ = {place.Number(2), {place.Number(3), place.Number(4)}};
  counts_ = {place.Number(5), place.Number(6), place.Number(7)};
}

std::optional<RowFault> BaseBuilder::Add(const AddressRow& row) {
  std::optional<RowFault> fault;
  const std::optional<int64_t> street = FindStreet(row, fault);
  const std::string_view zip4 = row[Field::Zip4];
  const std::string_view knownZip4 =
      zip4.size() == 4 && AllDigits(zip4) && zip4 != kNoZip4 ? zip4 : std::string_view("");
  if (!street) {
    ++counts_.leftOut;
    return fault;
  }
  if (const std::string number = reader_.ReadNumber(row[Field::Number]); !number.empty()) {
    SqliteQuery(*addPoint_, *street, number, reader_.ReadUnit(row[Field::Unit]), knownZip4).Step();
    ++counts_.points;
    return std::nullopt;
  }
  const std::string low = reader_.ReadNumber(row[Field::Low]);
  const std::string high = reader_.ReadNumber(row[Field::High]);
  const auto range = NumberRange::Read(low, high, row[Field::Parity]);
  if (!range) {
    ++counts_.leftOut;
    return RowFault::NoNumber;
  }
  const char parity = static_cast<char>(range->parity);
  SqliteQuery(*addRange_, *street, low, high, std::string_view(&parity, 1), knownZip4).Step();
  ++counts_.ranges;
  return std::nullopt;
}

std::optional<int64_t> BaseBuilder::FindStreet(const AddressRow& row,
                                               std::optional<RowFault>& fault) {
  key_.clear();
  for (const Field field :
       {Field::Street, Field::Zip, Field::City, Field::State, Field::Urbanization}) {
    key_.append(row[field]).append(1, '\0');
  }
  auto known = streets_.find(std::string_view(key_));
  if (known == streets_.end()) {
    if (streets_.size() >= kMostStreetsKept) {
      streets_.clear();
    }
    const auto read = reader_.ReadStreet(row);
    const auto* const street = std::get_if<RowStreet>(&read);
    known = streets_
                .emplace(key_, street != nullptr
                                   ? std::variant<int64_t, RowFault>(StreetId(*street))
                                   : std::variant<int64_t, RowFault>(std::get<RowFault>(read)))
                .first;
  }
  if (const auto* id = std::get_if<int64_t>(&known->second)) {
    return *id;
  }
  fault = std::get<RowFault>(known->second);
  return std::nullopt;
}

int64_t BaseBuilder::StreetId(const RowStreet& read) {
  NoteCity(read);
  const StreetName& street = read.street;
  const std::string key = StreetKey(street.name);
  const auto ask = [&](SqliteStatement& statement) {
    return SqliteQuery(statement, read.zip, key, street.name, street.predirectional, street.suffix,
                       street.postdirectional, street.urbanization);
  };
  ask(*addStreet_).Step();
  if (stage_.Changes() > 0) {
    return stage_.LastRow();
  }
  SqliteQuery query = ask(*findStreet_);
  query.Step();
  return findStreet_->Number(0);
}

void BaseBuilder::NoteCity(const RowStreet& read) {
  if (notedCities_.size() >= kMostStreetsKept) {
    notedCities_.clear();
  }
  if (!notedCities_.insert(read.zip + read.city).second) {
    return;
  }
  SqliteQuery(*addZip_, read.zip, sourceId_).Step();
  if (!read.city.empty()) {
    SqliteQuery(*addCity_, read.zip, CityKey(read.city), read.city, sourceId_).Step();
  }
}

void BaseBuilder::Save(const ImportPlace& place) {
  place_ = place;
  SqliteStatement save(stage_,
                       "UPDATE place SET file=?,position=?,line=?,points=?,ranges=?,left_out=?");
  SqliteQuery(save, place.file, place.row.position, place.row.line, counts_.points, counts_.ranges,
              counts_.leftOut)
      .Step();
  stage_.Run("COMMIT; BEGIN");
}

// The journal is one of an import that was killed. While the lock is held, so that they are not
// another's.
void BaseBuilder::RemoveStage() {
  std::filesystem::remove(Path(".import-journal"));
  std::filesystem::remove(Path(".import"));
}

void BaseBuilder::Finish() {
  if (counts_.points + counts_.ranges == 0) {
    RemoveStage();
    throw ImportError(base_.string() + ": stays as it is: nothing that can be imported is in the " +
                      "files of " + source_.name + "; " + std::to_string(counts_.leftOut) +
                      " rows are left out");
  }
  const std::string made = Path(".import-new");
  const Unfinished unfinished(made);
  stage_.Run("COMMIT; PRAGMA locking_mode=NORMAL");
  stage_.Number("SELECT count(*) FROM place");      // only now others may read what was gathered
  Lock([this] { stage_.Run("BEGIN IMMEDIATE"); });  // and still not write
  {
    SqliteFile whole(made, kPatience);
    Compose(whole);
  }
  LetOthersRead(made);
  FlushToDisk(made);
  for (const char* ending : {"-wal", "-shm"}) {
    std::filesystem::remove(Path(ending));  // of the old base; they must not be taken for the new
  }
  Rename(made, base_.string());
  RemoveStage();
  stage_.Run("ROLLBACK");
}

void BaseBuilder::Compose(SqliteFile& whole) const {
  // Nobody sees the file before it is whole, so nothing is to be undone in it.
  whole.Run("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; PRAGMA cache_size=-65536");
  Attach(whole, Path(".import"), "stage");
  const bool update = std::filesystem::exists(base_);
  const auto old = [&](const std::string& columns, const std::string& table,
                       const std::string& key) {
    return update ? " UNION ALL SELECT " + columns + " FROM old." + table + " WHERE " + key + "<>" +
                        std::to_string(sourceId_)
                  : std::string();
  };
  if (update) {
    Attach(whole, base_.string(), "old");
  }
  whole.Run("BEGIN");
  whole.Run(std::string(BaseSchema::kFacts));
  const std::string id = std::to_string(sourceId_);
  whole.Run("INSERT OR IGNORE INTO point SELECT street,number,unit," + id +
            " AS source,zip4 FROM staged_point" + old("*", "point", "source") +
            " ORDER BY 1,2,3,4");
  whole.Run("INSERT OR IGNORE INTO number_range SELECT street,low,high,parity," + id +
            " AS source,zip4 FROM staged_range" + old("*", "number_range", "source") +
            " ORDER BY 1,2,3,4,5");
  whole.Run(std::string(BaseSchema::kTables));
  whole.Run(
      "INSERT INTO main.street SELECT * FROM stage.street s WHERE EXISTS "
      "(SELECT 1 FROM point WHERE street=s.id) OR EXISTS "
      "(SELECT 1 FROM number_range WHERE street=s.id)");
  whole.Run("INSERT INTO main.city SELECT * FROM stage.city" + old("*", "city", "source"));
  whole.Run("INSERT INTO main.zip SELECT * FROM stage.zip" + old("*", "zip", "source"));
  if (update) {
    whole.Run("INSERT INTO main.source SELECT * FROM old.source WHERE id<>" + id);
  }
  SqliteStatement source(whole, "INSERT INTO main.source VALUES(?,?,?,?,?,?,?,?,?)");
  SqliteQuery(source, sourceId_, source_.name, source_.format, source_.licence, source_.attribution,
              Today(), int64_t{source_.whole}, counts_.points + counts_.ranges, counts_.leftOut)
      .Step();
  whole.Run("PRAGMA main.application_id=" + std::to_string(BaseSchema::kApplicationId) +
            "; PRAGMA main.user_version=" + std::to_string(BaseSchema::kVersion) +
            "; COMMIT; DETACH stage");
  whole.Run(update ? "DETACH old; PRAGMA journal_mode=WAL" : "PRAGMA journal_mode=WAL");
}

}  // namespace postwright::postal
