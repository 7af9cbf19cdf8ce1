#include "postal/import/RunMerge.h"

#include <algorithm>
#include <cstring>
#include <tuple>

namespace postwright::postal {
namespace {

// Takes the text up to the next NUL off the front.
std::string_view TakeText(std::string_view& rows) {
  const std::string_view text = rows.substr(0, rows.find('\0'));
  rows.remove_prefix(std::min(text.size() + 1, rows.size()));
  return text;
}

}  // namespace

RunMerge::RunMerge(SqliteFile& file)
    : find_(file, "SELECT points FROM staged_run WHERE run=? AND part=?") {
  SqliteStatement runs(file, "SELECT DISTINCT run FROM staged_run ORDER BY run");
  while (runs.Step()) {
    runs_.emplace_back().number = runs.Number(0);
  }
  for (size_t i = 0; i < runs_.size(); ++i) {
    if (Read(runs_[i])) {
      order_.push_back(i);
    }
  }
  std::make_heap(order_.begin(), order_.end(),
                 [this](size_t a, size_t b) { return ComesAfter(a, b); });
}

// Mostly the next one is of the same run: then the heap stays as it is.
bool RunMerge::Next() {
  if (!hasBegun_) {
    hasBegun_ = true;
    return !order_.empty();
  }
  const auto after = [this](size_t a, size_t b) { return ComesAfter(a, b); };
  const bool goesOn = Read(runs_[order_.front()]);
  const size_t least = order_.size() > 2 && after(order_[1], order_[2]) ? 2 : 1;
  if (!goesOn || (order_.size() > 1 && after(order_.front(), order_[least]))) {
    std::pop_heap(order_.begin(), order_.end(), after);
    if (goesOn) {
      std::push_heap(order_.begin(), order_.end(), after);
    } else {
      order_.pop_back();
    }
  }
  return !order_.empty();
}

bool RunMerge::Read(Run& run) {
  if (run.at == run.rows.size()) {
    SqliteQuery query(find_, run.number, run.part++);
    run.rows = query.Step() ? find_.Text(0) : std::string();
    run.at = 0;
  }
  std::string_view rows = std::string_view(run.rows).substr(run.at);
  if (rows.size() <= sizeof run.point.street) {
    return false;
  }
  std::memcpy(&run.point.street, rows.data(), sizeof run.point.street);
  rows.remove_prefix(sizeof run.point.street);
  const char* const text = rows.data();
  run.point.number = TakeText(rows);
  run.point.unit = TakeText(rows);
  run.key = {text, static_cast<size_t>(rows.data() - text)};
  run.point.zip4 = TakeText(rows);
  run.at = run.rows.size() - rows.size();
  return true;
}

bool RunMerge::ComesAfter(size_t run, size_t other) const {
  const Run& a = runs_[run];
  const Run& b = runs_[other];
  return std::tie(a.point.street, a.key, run) > std::tie(b.point.street, b.key, other);
}

}  // namespace postwright::postal
