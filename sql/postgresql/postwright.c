/* The functions of the extension, as PostgreSQL calls them. */

#include <postgres.h>

#include <fmgr.h>
#include <funcapi.h>
#include <mb/pg_wchar.h>
#include <miscadmin.h>
#include <utils/builtins.h>
#include <utils/guc.h>

#include "sql/postgresql/labels.h"

PG_MODULE_MAGIC;

#pragma GCC visibility push(default)
void _PG_init(void);
PG_FUNCTION_INFO_V1(pg_postwright_parse);  /* postwright_parse is a function of the core */
PG_FUNCTION_INFO_V1(pg_postwright_fix);
#pragma GCC visibility pop

static char* bases = NULL;

static void report(enum postwright_answer answer, const struct postwright_row* row) {
  switch (answer) {
    case POSTWRIGHT_BAD_LABEL:
      ereport(ERROR,
              (errcode(ERRCODE_INVALID_PARAMETER_VALUE), errmsg("postwright: %s", row->problem)));
      break;
    case POSTWRIGHT_BAD_BASES:
      ereport(ERROR, (errcode(ERRCODE_CONFIG_FILE_ERROR), errmsg("postwright: %s", row->problem),
                      errhint("postwright.bases names the address bases; when it is empty, all in "
                              "/var/lib/postwright are used.")));
      break;
    case POSTWRIGHT_FAULT:
      ereport(ERROR, (errcode(ERRCODE_INTERNAL_ERROR), errmsg("postwright: %s", row->problem)));
      break;
    default:
      break;
  }
}

/* The function's row type, looked up once for a statement. */
static TupleDesc row_type(FunctionCallInfo fcinfo, size_t count) {
  TupleDesc type = fcinfo->flinfo->fn_extra;
  if (type == NULL) {
    MemoryContext before = MemoryContextSwitchTo(fcinfo->flinfo->fn_mcxt);
    if (get_call_result_type(fcinfo, NULL, &type) != TYPEFUNC_COMPOSITE ||
        type->natts != (int)count) {
      ereport(ERROR, (errcode(ERRCODE_DATATYPE_MISMATCH),
                      errmsg("postwright: the module and the extension have different versions"),
                      errhint("ALTER EXTENSION postwright UPDATE")));
    }
    type = BlessTupleDesc(CreateTupleDescCopy(type));
    MemoryContextSwitchTo(before);
    fcinfo->flinfo->fn_extra = type;
  }
  return type;
}

/* The text in the database's own encoding. */
static Datum cell_datum(const struct postwright_cell* cell) {
  char* text = pg_any_to_server(cell->text, (int)cell->length, PG_UTF8);
  return PointerGetDatum(text == cell->text ? cstring_to_text_with_len(text, (int)cell->length)
                                            : cstring_to_text(text));
}

static Datum row_datum(FunctionCallInfo fcinfo, const struct postwright_row* row) {
  Datum values[32];
  bool nulls[32] = {false};
  TupleDesc type = row_type(fcinfo, row->count);
  Assert(row->count <= lengthof(values));
  for (size_t i = 0; i < row->count; ++i) {
    values[i] = cell_datum(&row->cells[i]);
  }
  return HeapTupleGetDatum(heap_form_tuple(type, values, nulls));
}

/* The label in UTF-8. Not const, since the server's macros cast const away. */
static const char* label_text(text* label, size_t* length) {
  const char* data = VARDATA_ANY(label);
  const char* utf8 = pg_server_to_any(data, (int)VARSIZE_ANY_EXHDR(label), PG_UTF8);
  *length = utf8 == data ? VARSIZE_ANY_EXHDR(label) : strlen(utf8);
  return utf8;
}

Datum pg_postwright_parse(PG_FUNCTION_ARGS) {
  struct postwright_row row;
  size_t length;
  const char* label = label_text(PG_GETARG_TEXT_PP(0), &length);
  enum postwright_answer answer;
  CHECK_FOR_INTERRUPTS();
  answer = postwright_parse_label(label, length, &row);
  report(answer, &row);
  if (answer == POSTWRIGHT_NO_CELLS) {
    PG_RETURN_NULL();
  }
  PG_RETURN_DATUM(row_datum(fcinfo, &row));
}

Datum pg_postwright_fix(PG_FUNCTION_ARGS) {
  struct postwright_row row;
  size_t length;
  const char* label = label_text(PG_GETARG_TEXT_PP(0), &length);
  CHECK_FOR_INTERRUPTS();
  report(postwright_fix_label(label, length, bases, &row), &row);
  PG_RETURN_DATUM(row_datum(fcinfo, &row));
}

void _PG_init(void) {
  struct postwright_row row;
  DefineCustomStringVariable(
      "postwright.bases", "Address bases that postwright_fix answers from, separated by commas.",
      "When it is empty, all in /var/lib/postwright are used.", &bases, "", PGC_SUSET, 0, NULL, NULL,
      NULL);
  MarkGUCPrefixReserved("postwright");
  report(postwright_prepare(&row), &row);
}
