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
#include "postal/base/PostalTables.h"
#include "postal/places/CityName.h"

namespace postwright::postal {
namespace {

constexpr std::chrono::milliseconds kPatience(
    0);                                       // a second import of the same base is told at once
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

// The mode that a new file gets: a base is not a secret, and the service may run as another user.
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
  streets_.emplace(stage_, reader_, sourceId_);
  postal_.emplace(stage_, reader_, sourceId_);
  points_.emplace(stage_);
  addRange_.emplace(stage_, "INSERT INTO staged_range VALUES(?,?,?,?,?)");
}

// The lock is held until the end: no other import may gather rows for the same base, nor throw away
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
  stage_.Run(std::string(BaseSchema::kStage) + std::string(PointRuns::kTables));
  stage_.Run(std::string(PostalTables::kTables) + std::string(PostalStage::kTables));
  if (isUpdate) {
    CopyStreets();
  }
  SqliteStatement place(stage_, "INSERT INTO place VALUES(?,?,0,0,1,0,0,0,0)");
  SqliteQuery(place, job, sourceId_).Step();
  stage_.Run(isUpdate ? "COMMIT; DETACH old; BEGIN" : "COMMIT; BEGIN");
}

// Streets keep their numbers, so that what stays of the base can be taken over as it is.
void BaseBuilder::CopyStreets() {
  stage_.Run("INSERT INTO main.street SELECT * FROM old.street ORDER BY id");
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
                      "since; give the same command again, or --restart to start over");
  }
  sourceId_ = place.Number(1);
  place_ = {place.Number(2), {place.Number(3), place.Number(4)}};
  counts_ = {place.Number(5), place.Number(6), place.Number(7), place.Number(8)};
}

std::optional<RowFault> BaseBuilder::Add(const AddressRow& row) {
  if (row.postal.kind != PostalRecord::Kind::None) {
    const auto fault = AddPostal(row);
    counts_.leftOut += fault ? 1 : 0;
    return fault;
  }
  std::optional<RowFault> fault;
  const std::optional<int64_t> street = streets_->Find(row, fault);
  const std::string_view zip4 = row[Field::Zip4];
  const std::string_view knownZip4 =
      zip4.size() == 4 && AllDigits(zip4) && zip4 != kNoZip4 ? zip4 : std::string_view("");
  if (!street) {
    ++counts_.leftOut;
    return fault;
  }
  if (const std::string number = reader_.ReadNumber(row[Field::Number]); !number.empty()) {
    points_->Add({*street, number, reader_.ReadUnit(row[Field::Unit]), knownZip4});
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

// A record of the postal service's own is a range, if of one number.
std::optional<RowFault> BaseBuilder::AddPostal(const AddressRow& row) {
  std::optional<RowFault> fault;
  switch (row.postal.kind) {
    case PostalRecord::Kind::Deletion:
      fault = postal_->Delete(row.postal.key) ? fault : RowFault::NoRecord;
      counts_.ranges -= fault ? 0 : 1;
      return fault;
    case PostalRecord::Kind::Place:
      AddPlace(row);
      ++counts_.names;
      return std::nullopt;
    case PostalRecord::Kind::Urbanization:
      postal_->AddName(row.postal.key, row[Field::City]);
      ++counts_.names;
      return std::nullopt;
    case PostalRecord::Kind::Alias:
      fault = postal_->AddAlias(row);
      counts_.names += fault ? 0 : 1;
      return fault;
    default:
      break;
  }
  if (!row.postal.urbanization.empty() && row[Field::Urbanization].empty()) {
    AddressRow named = row;
    named[Field::Urbanization] = postal_->NameOf(row.postal.urbanization);
    return named[Field::Urbanization].empty() ? RowFault::NoName : AddPostal(named);
  }
  if (const auto street = streets_->Find(row, fault)) {
    fault = postal_->AddNumbers(*street, row);
    counts_.ranges += fault ? 0 : 1;
  }
  return fault;
}

// The first name that a ZIP code's preferred one is read beside counts: it is the same on each.
void BaseBuilder::AddPlace(const AddressRow& row) {
  const std::string& zip = row[Field::Zip];
  const std::string name = StandardCity(row[Field::City]);
  const std::string preferred = StandardCity(row.postal.other);
  postal_->AddName(row.postal.key, name);
  if (row.postal.isUsable) {
    streets_->AddCity(zip, name);
  } else if (!preferred.empty()) {
    postal_->AddPlaceName(zip, CityKey(name), preferred);
  }
  if (!preferred.empty()) {
    postal_->AddPlaceName(zip, "", preferred);
  }
}

void BaseBuilder::Save(const ImportPlace& place) {
  place_ = place;
  points_->Save();
  SqliteStatement save(
      stage_, "UPDATE place SET file=?,position=?,line=?,points=?,ranges=?,names=?,left_out=?");
  SqliteQuery(save, place.file, place.row.position, place.row.line, counts_.points, counts_.ranges,
              counts_.names, counts_.leftOut)
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
  if (counts_.points + counts_.ranges + counts_.names == 0) {
    RemoveStage();
    throw ImportError(base_.string() + ": stays as it is: nothing that can be imported is in the " +
                      "files of " + source_.name + "; " + std::to_string(counts_.leftOut) +
                      " rows are left out");
  }
  const std::string made = Path(".import-new");
  const Unfinished unfinished(made);
  points_->Save();
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
  PointRuns::Compose(whole, sourceId_, update);
  whole.Run("INSERT OR IGNORE INTO number_range SELECT street,low,high,parity," + id +
            " AS source,zip4 FROM staged_range" + old("*", "number_range", "source") +
            " ORDER BY 1,2,3,4,5");
  whole.Run(std::string(PostalTables::kTables));
  PostalStage::Compose(whole, sourceId_, update);
  whole.Run(std::string(BaseSchema::kTables));
  whole.Run(
      "INSERT INTO main.street SELECT * FROM stage.street s WHERE EXISTS "
      "(SELECT 1 FROM point WHERE street=s.id) OR EXISTS "
      "(SELECT 1 FROM number_range WHERE street=s.id) "
      "ORDER BY zip,key,name,predirectional,suffix,postdirectional,urbanization");
  whole.Run("INSERT INTO main.city SELECT * FROM stage.city" + old("*", "city", "source"));
  whole.Run("INSERT INTO main.zip SELECT * FROM stage.zip" + old("*", "zip", "source"));
  if (update) {
    whole.Run("INSERT INTO main.source SELECT * FROM old.source WHERE id<>" + id);
  }
  SqliteStatement source(whole, "INSERT INTO main.source VALUES(?,?,?,?,?,?,?,?,?)");
  SqliteQuery(source, sourceId_, source_.name, source_.format, source_.licence, source_.attribution,
              Today(), int64_t{source_.whole}, counts_.points + counts_.ranges + counts_.names,
              counts_.leftOut)
      .Step();
  whole.Run("PRAGMA main.application_id=" + std::to_string(BaseSchema::kApplicationId) +
            "; PRAGMA main.user_version=" + std::to_string(BaseSchema::kVersion) +
            "; COMMIT; DETACH stage");
  whole.Run(update ? "DETACH old; PRAGMA journal_mode=WAL" : "PRAGMA journal_mode=WAL");
}

}  // namespace postwright::postal
