#include "sql/postgresql/labels.h"

#include <postwright/LocalService.h>

#include <optional>
#include <string>
#include <vector>

#include "common/BaseFolders.h"
#include "sql/label/SqlLabel.h"

namespace postwright::sql {

namespace {

// What the last call returned.
struct Returned {
  std::vector<std::string> texts;
  std::vector<postwright_cell> cells;
  std::string problem;
};

Returned& LastReturned() {
  static auto* const returned = new Returned;
  return *returned;
}

template <typename Texts>
postwright_answer GiveRow(Texts& texts, postwright_row* row) {
  Returned& returned = LastReturned();
  returned.texts.assign(std::make_move_iterator(texts.begin()),
                        std::make_move_iterator(texts.end()));
  returned.cells.clear();
  for (const std::string& text : returned.texts) {
    returned.cells.push_back({text.c_str(), text.size()});
  }
  *row = {returned.cells.data(), returned.cells.size(), ""};
  return POSTWRIGHT_CELLS;
}

postwright_answer GiveProblem(postwright_answer answer, const char* problem, postwright_row* row) {
  try {
    LastReturned().problem = problem;
    *row = {nullptr, 0, LastReturned().problem.c_str()};
  } catch (const std::bad_alloc&) {
    *row = {nullptr, 0, "out of memory"};
  }
  return answer;
}

template <typename Work>
postwright_answer Guard(postwright_row* row, Work work) {
  try {
    return work();
  } catch (const LabelError& failure) {
    return GiveProblem(POSTWRIGHT_BAD_LABEL, failure.what(), row);
  } catch (const LocalServiceError& failure) {
    return GiveProblem(POSTWRIGHT_BAD_BASES, failure.what(), row);
  } catch (const std::filesystem::filesystem_error& failure) {
    return GiveProblem(POSTWRIGHT_BAD_BASES, failure.what(), row);
  } catch (const std::exception& failure) {
    return GiveProblem(POSTWRIGHT_FAULT, failure.what(), row);
  }
}

std::vector<std::filesystem::path> PathsOf(const std::string& bases) {
  std::vector<std::filesystem::path> paths;
  constexpr const char* kBlanks = " \t\n";
  for (std::size_t begin = 0; begin < bases.size();) {
    const std::size_t end = std::min(bases.find(',', begin), bases.size());
    const std::string path = bases.substr(begin, end - begin);
    if (const std::size_t first = path.find_first_not_of(kBlanks); first != std::string::npos) {
      paths.emplace_back(path.substr(first, path.find_last_not_of(kBlanks) + 1 - first));
    }
    begin = end + 1;
  }
  return paths;
}

// Returns the fixer, made anew when other bases are named.
const LabelFixer& FixerFor(const std::string& bases) {
  static std::string made;
  static std::optional<LabelFixer> fixer;
  if (!fixer || made != bases) {
    std::vector<std::filesystem::path> paths = PathsOf(bases);
    fixer.emplace(paths.empty() ? FilesIn(kMachineBases, ".base") : paths);
    made = bases;
  }
  return *fixer;
}

}  // namespace

}  // namespace postwright::sql

using namespace postwright::sql;

postwright_answer postwright_prepare(postwright_row* row) {
  return Guard(row, [] {
    PrepareParser();
    return POSTWRIGHT_NO_CELLS;
  });
}

postwright_answer postwright_parse_label(const char* label, size_t length, postwright_row* row) {
  return Guard(row, [&] {
    std::optional<ParsedLabel> parsed = ParseLabel({label, length});
    return parsed ? GiveRow(*parsed, row) : POSTWRIGHT_NO_CELLS;
  });
}

postwright_answer postwright_fix_label(const char* label, size_t length, const char* bases,
                                       postwright_row* row) {
  return Guard(row, [&] {
    FixedLabel fixed = FixerFor(bases).Fix({label, length});
    return GiveRow(fixed, row);
  });
}
