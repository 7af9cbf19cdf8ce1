#include "postal/import/PointRuns.h"

#include <algorithm>
#include <cstring>
#include <tuple>

#include "postal/import/RunMerge.h"

namespace postwright::postal {
namespace {

constexpr size_t kPart = 32 * 1024;  // bytes of a run that are read at a time

}  // namespace

// A part holds whole rows: the street's number in eight bytes, then its texts.
const std::string_view PointRuns::kTables = R"(
CREATE TABLE staged_run(
  run INTEGER NOT NULL, part INTEGER NOT NULL, points BLOB NOT NULL, PRIMARY KEY(run, part));
)";

PointRuns::PointRuns(SqliteFile& stage)
    : add_(stage, "INSERT INTO staged_run VALUES(?,?,?)"),
      run_(stage.Number("SELECT coalesce(max(run),0) FROM staged_run")) {}

void PointRuns::Add(const StagedPoint& point) {
  const size_t begin = texts_.size();
  for (const std::string_view text : {point.number, point.unit}) {
    texts_.append(text).append(1, '\0');
  }
  const size_t keyLength = texts_.size() - begin;
  texts_.append(point.zip4).append(1, '\0');
  points_.push_back({point.street, begin, keyLength, texts_.size() - begin});
}

bool PointRuns::ComesFirst(const Added& a, const Added& b) const {
  const std::string_view texts = texts_;
  return a.street != b.street
             ? a.street < b.street
             : texts.substr(a.text, a.keyLength) < texts.substr(b.text, b.keyLength);
}

void PointRuns::Save() {
  std::stable_sort(points_.begin(), points_.end(),
                   [this](const Added& a, const Added& b) { return ComesFirst(a, b); });
  ++run_;
  std::string rows;
  int64_t part = 0;
  for (size_t i = 0; i < points_.size(); ++i) {
    char street[sizeof(int64_t)];
    std::memcpy(street, &points_[i].street, sizeof street);
    rows.append(street, sizeof street).append(texts_, points_[i].text, points_[i].length);
    if (rows.size() >= kPart || i + 1 == points_.size()) {
      SqliteQuery(add_, run_, part++, SqliteBytes{rows}).Step();
      rows.clear();
    }
  }
  points_.clear();
  texts_.clear();
}

// In the table's order, so that its pages are filled one after the other. Of equal ones the first
// counts.
void PointRuns::Compose(SqliteFile& whole, int64_t source, bool update) {
  SqliteStatement add(whole, "INSERT OR IGNORE INTO main.point VALUES(?,?,?,?,?)");
  SqliteStatement others(whole, std::string("SELECT street,number,unit,source,zip4 FROM ") +
                                    (update ? "old" : "main") +
                                    ".point WHERE source<>? ORDER BY 1,2,3,4");
  SqliteQuery otherRows(others, source);
  auto addOthersBefore = [&, has = update && otherRows.Step()](const StagedPoint* next) mutable {
    for (; has; has = otherRows.Step()) {
      const int64_t street = others.Number(0);
      const std::string number = others.Text(1);
      const std::string unit = others.Text(2);
      const int64_t owner = others.Number(3);
      if (next != nullptr &&
          std::tuple(street, std::string_view(number), std::string_view(unit), owner) >
              std::tuple(next->street, next->number, next->unit, source)) {
        return;
      }
      SqliteQuery(add, street, number, unit, owner, others.Text(4)).Step();
    }
  };
  for (RunMerge merge(whole); merge.Next();) {
    const StagedPoint& point = merge.Point();
    addOthersBefore(&point);
    SqliteQuery(add, point.street, point.number, point.unit, source, point.zip4).Step();
  }
  addOthersBefore(nullptr);
}

}  // namespace postwright::postal
