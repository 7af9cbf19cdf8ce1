#include <postwright/VerifySource.h>

namespace postwright {

namespace {

struct Row {
  VerifySourceKind kind;
  const char* code;
  const char* text;
  const char* beforeDate;
};

constexpr Row kRows[] = {
    {VerifySourceUntold, "", "", ""},
    {VerifySourceBase, "base", "the address base", " of "},
    {VerifySourceZipList, "zip-list", "the list of ZIP codes", " of "},
    {VerifySourceUpstream, "upstream", "the upstream service", " on "},
    {VerifySourceCache, "cache", "the upstream service", ", which answered on "},
};

const Row& RowOf(VerifySourceKind kind) {
  for (const Row& row : kRows) {
    if (row.kind == kind) {
      return row;
    }
  }
  return kRows[0];
}

}  // namespace

const char* VerifySource::Code() const {
  return RowOf(kind).code;
}

std::string VerifySource::Text() const {
  const Row& row = RowOf(kind);
  std::string text = row.text;
  if (!name.empty()) {
    text += " " + name;
  }
  if (!date.empty()) {
    text += row.beforeDate + date;
  }
  return &row == kRows ? std::string() : text;
}

VerifySourceKind VerifySourceKindOf(const std::string& code) {
  for (const Row& row : kRows) {
    if (code == row.code) {
      return row.kind;
    }
  }
  return VerifySourceUntold;
}

}  // namespace postwright
