#ifndef POSTWRIGHT_SQL_POSTGRESQL_LABELS_H_
#define POSTWRIGHT_SQL_POSTGRESQL_LABELS_H_

#include <stddef.h>

/* What the functions of PostgreSQL, which are C, ask of C++. No exception comes out, and PostgreSQL
   is not called from within, so that its errors, which are jumps, pass no object of C++. A server
   process has one thread: everything that is returned lives until the next call. */

#ifdef __cplusplus
extern "C" {
#endif

enum postwright_answer {
  POSTWRIGHT_CELLS,     /* the columns of the row, in their order */
  POSTWRIGHT_NO_CELLS,  /* the label holds no address */
  POSTWRIGHT_BAD_LABEL, /* the label is none; `problem` says why */
  POSTWRIGHT_BAD_BASES, /* a file cannot be used; `problem` names it, and says why */
  POSTWRIGHT_FAULT      /* something else; `problem` says what */
};

struct postwright_cell {
  const char* text; /* UTF-8, and a NUL behind it */
  size_t length;
};

struct postwright_row {
  const struct postwright_cell* cells;
  size_t count;
  const char* problem;
};

/* Makes the parser, which a server that loads the module when it starts has made once for all its
   processes. */
enum postwright_answer postwright_prepare(struct postwright_row* row);

/* The columns of postwright_address, of a label in UTF-8. */
enum postwright_answer postwright_parse_label(const char* label, size_t length,
                                              struct postwright_row* row);

/* The columns of postwright_fixed, answered from the bases that `bases` names, set apart by commas;
   where it names none, from those in /var/lib/postwright, as they are at the first call. */
enum postwright_answer postwright_fix_label(const char* label, size_t length, const char* bases,
                                            struct postwright_row* row);

#ifdef __cplusplus
}
#endif

#endif /* POSTWRIGHT_SQL_POSTGRESQL_LABELS_H_ */
