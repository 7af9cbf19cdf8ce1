#include "postal/import/PostalStage.h"

#include "common/AsciiText.h"
#include "common/Encoding.h"
#include "postal/base/HouseNumber.h"
#include "postal/base/PostalTables.h"
#include "postal/base/StreetName.h"

namespace postwright::postal {
namespace {

// A firm's name as questions have it.
std::string FirmName(const std::string& text) {
  const auto folded = FoldToAscii(DecodeText(text));
  return folded ? SingleBlanks(*folded) : std::string();
}

// A number of a box, which may be letters alone: "AA".
std::string BoxNumber(const std::string& text) {
  return text == "0" ? std::string() : text;
}

bool IsBuilding(const AddressRow& row) {
  return row.postal.kind == PostalRecord::Kind::Firm ||
         row.postal.kind == PostalRecord::Kind::HighRise;
}

}  // namespace

// `what` is P where the record names one address, U where units from one to another, R where
// numbers from one to another.
const std::string_view PostalStage::kTables = R"(
CREATE TABLE staged_record(
  key TEXT NOT NULL, what TEXT NOT NULL, street INTEGER NOT NULL, low TEXT NOT NULL,
  high TEXT NOT NULL, parity TEXT NOT NULL, unit TEXT NOT NULL, unit_low TEXT NOT NULL,
  unit_high TEXT NOT NULL, unit_parity TEXT NOT NULL, firm TEXT NOT NULL, zip4 TEXT NOT NULL,
  route TEXT NOT NULL, last_line TEXT NOT NULL);
CREATE TABLE staged_name(key TEXT PRIMARY KEY, name TEXT NOT NULL) WITHOUT ROWID;
)";

PostalStage::PostalStage(SqliteFile& stage, RowReader& reader, int64_t source)
    : stage_(stage),
      reader_(reader),
      source_(source),
      addRecord_(stage, "INSERT INTO staged_record VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?,?)"),
      addPlaceName_(stage, "INSERT OR IGNORE INTO city_use VALUES(?,?,?,?)"),
      addAlias_(stage, "INSERT INTO alias VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)"),
      addName_(stage, "INSERT OR IGNORE INTO staged_name VALUES(?,?)"),
      findName_(stage, "SELECT name FROM staged_name WHERE key=?") {}

std::optional<RowFault> PostalStage::AddNumbers(int64_t street, const AddressRow& row) {
  const PostalRecord& postal = row.postal;
  const bool isBox = postal.IsBox();
  std::string low = isBox ? BoxNumber(row[Field::Low]) : reader_.ReadNumber(row[Field::Low]);
  std::string high = isBox ? BoxNumber(row[Field::High]) : reader_.ReadNumber(row[Field::High]);
  std::string parity;
  if (const auto range = NumberRange::Read(low, high, row[Field::Parity])) {
    parity = static_cast<char>(range->parity);
  } else if (postal.kind == PostalRecord::Kind::GeneralDelivery) {
    low.clear();  // which has none
    high.clear();
  } else {
    return RowFault::NoNumber;
  }
  const bool isOne = low == high && (IsBuilding(row) || low.empty());
  const bool hasUnits = isOne && postal.unitLow != postal.unitHigh;
  const std::string& unit = isOne && !hasUnits && !postal.unitLow.empty()
                                ? reader_.ReadUnit(row[Field::Unit] + ' ' + postal.unitLow)
                                : row[Field::Unit];
  const std::string firm =
      postal.kind == PostalRecord::Kind::Firm && isOne ? FirmName(postal.firm) : std::string();
  SqliteQuery(addRecord_, postal.key, isOne ? (hasUnits ? "U" : "P") : "R", street, low, high,
              parity, isOne && !hasUnits && postal.unitLow.empty() ? "" : unit, postal.unitLow,
              postal.unitHigh, postal.unitParity, firm, row[Field::Zip4], postal.route,
              postal.lastLine)
      .Step();
  return std::nullopt;
}

void PostalStage::AddPlaceName(const std::string& zip, const std::string& key,
                               const std::string& preferred) {
  SqliteQuery(addPlaceName_, zip, key, preferred, source_).Step();
}

void PostalStage::AddName(const std::string& key, const std::string& name) {
  SqliteQuery(addName_, key, name).Step();
}

std::string PostalStage::NameOf(const std::string& key) {
  SqliteQuery query(findName_, key);
  return query.Step() ? findName_.Text(0) : std::string();
}

std::optional<RowFault> PostalStage::AddAlias(const AddressRow& row) {
  AddressRow target;
  target[Field::Zip] = row[Field::Zip];
  target[Field::Street] = row.postal.other;
  const RowCity city = reader_.ReadCity(row);
  if (city.zip.empty()) {
    return RowFault::NoZip;
  }
  const auto name = reader_.ReadStreet(row, city.state);
  const auto of = reader_.ReadStreet(target, reader_.ReadCity(target).state);
  if (!name || !of) {
    return RowFault::NoStreet;
  }
  SqliteQuery(addAlias_, city.zip, StreetKey(name->name), name->predirectional, name->name,
              name->suffix, name->postdirectional, row[Field::Low], row[Field::High],
              row[Field::Parity], int64_t{row.postal.isUsable}, of->predirectional, of->name,
              of->suffix, of->postdirectional, source_)
      .Step();
  return std::nullopt;
}

// The index is made when it is first needed: a file of additions alone goes without.
bool PostalStage::Delete(const std::string& key) {
  if (!delete_) {
    stage_.Run("CREATE INDEX IF NOT EXISTS record_by_key ON staged_record(key)");
    delete_.emplace(stage_, "DELETE FROM staged_record WHERE key=?");
  }
  SqliteQuery(*delete_, key).Step();
  return stage_.Changes() > 0;
}

// A place is only noted where it is not the one that the ZIP code prefers anyway, and nothing where
// records of the same numbers differ.
void PostalStage::ComposeDelivery(SqliteFile& whole, const std::string& source) {
  const auto agreed = [](const std::string& column) {
    return "CASE min(" + column + ") WHEN max(" + column + ") THEN min(" + column + ") ELSE '' END";
  };
  whole.Run(
      "INSERT INTO delivery SELECT * FROM (SELECT street,low,high,parity," + source + "," +
      agreed("route") + " AS route," + agreed("place") +
      " AS place FROM (SELECT r.street,r.low,r.high,r.parity,r.route,CASE WHEN n.name IS NULL OR "
      "EXISTS(SELECT 1 FROM stage.city_use WHERE zip=substr(s.zip,-5) AND key='' AND "
      "preferred=n.name) THEN '' ELSE n.name END AS place FROM staged_record r JOIN stage.street s "
      "ON s.id=r.street LEFT JOIN staged_name n ON n.key=r.last_line) GROUP BY 1,2,3,4) WHERE "
      "route<>'' OR place<>''");
}

// Of two records of one address the one with a ZIP+4 counts; a firm's is its own.
void PostalStage::Compose(SqliteFile& whole, int64_t source, bool update) {
  const std::string id = std::to_string(source);
  whole.Run("INSERT OR IGNORE INTO point SELECT street,low,unit," + id +
            ",max(CASE firm WHEN '' THEN zip4 ELSE '' END) FROM ("
            "SELECT street,low,unit,firm,zip4 FROM staged_record WHERE what='P' UNION ALL "
            "SELECT street,low,'','','' FROM staged_record WHERE what IN('P','U')) GROUP BY 1,2,3");
  whole.Run("INSERT OR IGNORE INTO number_range SELECT street,low,high,parity," + id +
            ",zip4 FROM staged_record WHERE what='R'");
  whole.Run(
      "INSERT OR IGNORE INTO unit_range SELECT street,low,unit,unit_low,unit_high,"
      "unit_parity," +
      id + ",zip4 FROM staged_record WHERE what='U'");
  whole.Run(
      "INSERT OR IGNORE INTO firm SELECT street,low,CASE what WHEN 'P' THEN unit ELSE '' END,"
      "firm," +
      id + ",zip4 FROM staged_record WHERE firm<>''");
  ComposeDelivery(whole, id);
  whole.Run(
      "INSERT INTO main.city_use SELECT * FROM stage.city_use; "
      "INSERT INTO main.alias SELECT * FROM stage.alias");
  for (const std::string_view name : PostalTables::kNames) {
    std::string isThere = "SELECT count(*) FROM old.sqlite_schema WHERE name='";
    isThere.append(name).append("'");
    if (update && whole.Number(isThere) > 0) {
      std::string keep = "INSERT INTO main.";
      keep.append(name).append(" SELECT * FROM old.").append(name).append(" WHERE source<>");
      whole.Run(keep.append(id));
    }
  }
}

}  // namespace postwright::postal
