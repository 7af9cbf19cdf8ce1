// The extension that SQLite loads: ".load postwright".

#include <sqlite3ext.h>

#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>

#include "sql/sqlite/Answer.h"
#include "sql/sqlite/LabelTable.h"
#include "sql/sqlite/Labels.h"

SQLITE_EXTENSION_INIT1

namespace postwright::sql {

namespace {

constexpr unsigned kJson = 'J';  // the subtype of the values of SQLite's own JSON functions

Labels& LabelsOf(sqlite3_context* context) {
  return **static_cast<std::shared_ptr<Labels>*>(sqlite3_user_data(context));
}

// Returns the place of a part among `columns`; throws where none has that name.
template <typename Columns>
std::size_t PlaceOf(sqlite3_value* part, const Columns& columns) {
  const std::string_view name = TextOf(part).value_or("NULL");
  const auto found = std::find(columns.begin(), columns.end(), name);
  if (found == columns.end()) {
    std::string names;
    for (const char* column : columns) {
      names += (names.empty() ? "" : ", ") + std::string(column);
    }
    throw std::invalid_argument("there is no part '" + std::string(name) + "'; the parts are " +
                                names);
  }
  return static_cast<std::size_t>(found - columns.begin());
}

// postwright_parse(label): the parts as a JSON object. postwright_parse(label, part): that part.
void Parse(sqlite3_context* context, int count, sqlite3_value** values) {
  Answer(context, [=] {
    const std::size_t place = count == 2 ? PlaceOf(values[1], kParseColumns) : 0;
    const auto label = TextOf(values[0]);
    if (!label) {
      return;
    }
    const std::optional<ParsedLabel>& parsed = LabelsOf(context).Parse(*label);
    if (parsed && count == 2) {
      SetText(context, parsed->at(place));
    } else if (parsed) {
      nlohmann::ordered_json parts;
      for (std::size_t i = 0; i < parsed->size(); ++i) {
        parts[kParseColumns.at(i)] = parsed->at(i);
      }
      SetText(context, parts.dump());
      sqlite3_result_subtype(context, kJson);
    }
  });
}

// postwright_fix(label): the text to use. postwright_fix(label, part): that part of the result.
void Fix(sqlite3_context* context, int count, sqlite3_value** values) {
  Answer(context, [=] {
    constexpr std::size_t kText = 1;
    const std::size_t place = count == 2 ? PlaceOf(values[1], kFixColumns) : kText;
    if (const auto label = TextOf(values[0])) {
      SetText(context, LabelsOf(context).Fix(*label).at(place));
    }
  });
}

// postwright_bases(file, ...): the address bases to answer from, instead of those found by default.
void UseBases(sqlite3_context* context, int count, sqlite3_value** values) {
  Answer(context, [=] {
    std::vector<std::filesystem::path> bases;
    bases.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
      bases.emplace_back(TextOf(values[i]).value_or(""));
    }
    LabelsOf(context).UseBases(bases);
    sqlite3_result_int(context, count);
  });
}

int Add(sqlite3* connection) {
  struct Row {
    const char* name;
    int arguments;
    int flags;
    void (*function)(sqlite3_context*, int, sqlite3_value**);
  };
  constexpr Row kRows[] = {
      {"postwright_parse", 1, SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, Parse},
      {"postwright_parse", 2, SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, Parse},
      {"postwright_fix", 1, SQLITE_INNOCUOUS, Fix},
      {"postwright_fix", 2, SQLITE_INNOCUOUS, Fix},
      {"postwright_bases", -1, SQLITE_DIRECTONLY, UseBases},  // opens files: for the user only
  };
  const auto labels = std::make_shared<Labels>();
  int result = AddLabelTables(connection, labels);
  for (const Row& row : kRows) {
    if (result == SQLITE_OK) {
      result = sqlite3_create_function_v2(
          connection, row.name, row.arguments, SQLITE_UTF8 | row.flags,
          new std::shared_ptr<Labels>(labels), row.function, nullptr, nullptr,
          [](void* held) { delete static_cast<std::shared_ptr<Labels>*>(held); });
    }
  }
  return result;
}

}  // namespace

}  // namespace postwright::sql

extern "C" __attribute__((visibility("default"))) int sqlite3_postwright_init(
    sqlite3* connection, char** message, const sqlite3_api_routines* api) {
  SQLITE_EXTENSION_INIT2(api)
  try {
    postwright::sql::PrepareParser();
    return postwright::sql::Add(connection);
  } catch (const std::exception& failure) {
    *message = sqlite3_mprintf("postwright: %s", failure.what());
    return SQLITE_ERROR;
  }
}
