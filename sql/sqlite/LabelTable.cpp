#include "sql/sqlite/LabelTable.h"

#include <new>
#include <string>
#include <vector>

#include "sql/sqlite/Answer.h"

namespace postwright::sql {

namespace {

using Cells = std::vector<std::string>;

// What the two table-valued functions differ in.
struct Kind {
  const char* name;
  std::vector<const char*> columns;
  Cells (*cells)(Labels& labels, std::string_view label);  // empty: no row
};

Cells ParseCells(Labels& labels, std::string_view label) {
  const std::optional<ParsedLabel>& parsed = labels.Parse(label);
  return parsed ? Cells(parsed->begin(), parsed->end()) : Cells();
}

Cells FixCells(Labels& labels, std::string_view label) {
  const FixedLabel& fixed = labels.Fix(label);
  return {fixed.begin(), fixed.end()};
}

const Kind kParse = {"postwright_parse", {kParseColumns.begin(), kParseColumns.end()}, ParseCells};
const Kind kFix = {"postwright_fix", {kFixColumns.begin(), kFixColumns.end()}, FixCells};

struct Function {
  const Kind& kind;
  std::shared_ptr<Labels> labels;
};

struct Table : sqlite3_vtab {
  explicit Table(const Function& of) : sqlite3_vtab(), function(of) {}
  const Function& function;
};

struct Cursor : sqlite3_vtab_cursor {
  Cursor() : sqlite3_vtab_cursor() {}
  Cells cells = {};
  std::string label = {};
};

Table& TableOf(sqlite3_vtab* table) {
  return *static_cast<Table*>(table);
}

Cursor& CursorOf(sqlite3_vtab_cursor* cursor) {
  return *static_cast<Cursor*>(cursor);
}

void Say(sqlite3_vtab* table, const std::string& message) {
  sqlite3_free(table->zErrMsg);
  table->zErrMsg = sqlite3_mprintf("%s", message.c_str());
}

int Connect(sqlite3* connection, void* function, int, const char* const*, sqlite3_vtab** table,
            char**) {
  const auto& of = *static_cast<const Function*>(function);
  std::string schema = "CREATE TABLE x(";
  for (const char* column : of.kind.columns) {
    schema += std::string(column) + " TEXT, ";
  }
  const int declared = sqlite3_declare_vtab(connection, (schema + "label HIDDEN)").c_str());
  if (declared == SQLITE_OK) {
    sqlite3_vtab_config(connection, SQLITE_VTAB_INNOCUOUS);
    *table = new (std::nothrow) Table(of);
  }
  return declared == SQLITE_OK && *table == nullptr ? SQLITE_NOMEM : declared;
}

int Disconnect(sqlite3_vtab* table) {
  delete &TableOf(table);
  return SQLITE_OK;
}

// There is one way to query the table: with a label.
int BestIndex(sqlite3_vtab* table, sqlite3_index_info* index) {
  const int labelColumn = static_cast<int>(TableOf(table).function.kind.columns.size());
  bool isGiven = false;
  for (int i = 0; i < index->nConstraint; ++i) {
    const auto& constraint = index->aConstraint[i];
    if (constraint.iColumn != labelColumn || constraint.op != SQLITE_INDEX_CONSTRAINT_EQ) {
      continue;
    }
    isGiven = true;
    if (constraint.usable != 0) {
      index->aConstraintUsage[i].argvIndex = 1;
      index->aConstraintUsage[i].omit = 1;
      index->estimatedCost = 1;
      index->estimatedRows = 1;
      return SQLITE_OK;
    }
  }
  if (!isGiven) {
    const std::string name = TableOf(table).function.kind.name;
    Say(table, name + " takes a label: FROM " + name + "('12 main st, austin tx 78701')");
    return SQLITE_ERROR;
  }
  return SQLITE_CONSTRAINT;
}

int Open(sqlite3_vtab*, sqlite3_vtab_cursor** cursor) {
  *cursor = new (std::nothrow) Cursor;
  return *cursor == nullptr ? SQLITE_NOMEM : SQLITE_OK;
}

int Close(sqlite3_vtab_cursor* cursor) {
  delete &CursorOf(cursor);
  return SQLITE_OK;
}

int Filter(sqlite3_vtab_cursor* base, int, const char*, int, sqlite3_value** values) {
  Cursor& cursor = CursorOf(base);
  const Function& function = TableOf(cursor.pVtab).function;
  try {
    cursor.cells.clear();
    if (const auto label = TextOf(values[0])) {
      cursor.label = *label;
      cursor.cells = function.kind.cells(*function.labels, *label);
    }
    return SQLITE_OK;
  } catch (const std::bad_alloc&) {
    return SQLITE_NOMEM;
  } catch (const std::exception& failure) {
    Say(cursor.pVtab, std::string("postwright: ") + failure.what());
    return SQLITE_ERROR;
  }
}

int Next(sqlite3_vtab_cursor* cursor) {
  CursorOf(cursor).cells.clear();
  return SQLITE_OK;
}

int IsAtEnd(sqlite3_vtab_cursor* cursor) {
  return CursorOf(cursor).cells.empty() ? 1 : 0;
}

int Column(sqlite3_vtab_cursor* base, sqlite3_context* context, int column) {
  const Cursor& cursor = CursorOf(base);
  const auto place = static_cast<std::size_t>(column);
  SetText(context, place < cursor.cells.size() ? cursor.cells[place] : cursor.label);
  return SQLITE_OK;
}

int RowId(sqlite3_vtab_cursor*, sqlite3_int64* id) {
  *id = 1;
  return SQLITE_OK;
}

// No xCreate: the table exists without CREATE VIRTUAL TABLE.
sqlite3_module MakeModule() {
  sqlite3_module module{};
  module.xConnect = Connect;
  module.xDisconnect = Disconnect;
  module.xBestIndex = BestIndex;
  module.xOpen = Open;
  module.xClose = Close;
  module.xFilter = Filter;
  module.xNext = Next;
  module.xEof = IsAtEnd;
  module.xColumn = Column;
  module.xRowid = RowId;
  return module;
}

}  // namespace

int AddLabelTables(sqlite3* connection, const std::shared_ptr<Labels>& labels) {
  static const sqlite3_module module = MakeModule();
  int result = SQLITE_OK;
  for (const Kind* kind : {&kParse, &kFix}) {
    if (result == SQLITE_OK) {
      result =
          sqlite3_create_module_v2(connection, kind->name, &module, new Function{*kind, labels},
                                   [](void* function) { delete static_cast<Function*>(function); });
    }
  }
  return result;
}

}  // namespace postwright::sql
