#ifndef POSTWRIGHT_SQL_POSTGRESQL_LABELS_H_
#define POSTWRIGHT_SQL_POSTGRESQL_LABELS_H_

#include <stddef.h>

/* What the PostgreSQL functions, which are C, call in C++. No exception leaves these functions, and
   they do not call PostgreSQL, whose errors are long jumps that would skip destructors. A server
   process has one thread: what a call returns is valid until the next call. */

#ifdef __cplusplus
extern "C" {
#endif

enum postwright_answer {
  POSTWRIGHT_CELLS,     /* the columns of the row, in their order */
  POSTWRIGHT_NO_CELLS,  /* the label holds no address */
  POSTWRIGHT_BAD_LABEL, /* the label cannot be read; `problem` says why */
  POSTWRIGHT_BAD_BASES, /* a file cannot be used; `problem` names it, and says why */
  POSTWRIGHT_FAULT      /* something else; `problem` says what */
};

struct postwright_cell {
  const char* text; /* UTF-8, ends with a NUL */
  size_t length;
};

struct postwright_row {
  const struct postwright_cell* cells;
  size_t count;
  const char* problem;
};

/* Makes the parser. A server that preloads the module does so once for all its processes. */
enum postwright_answer postwright_prepare(struct postwright_row* row);

/* Fills the columns of postwright_address from a label in UTF-8. */
enum postwright_answer postwright_parse_label(const char* label, size_t length,
                                              struct postwright_row* row);

/* Fills the columns of postwright_fixed from the bases named in `bases`, separated by commas; where
   it names none, from those that are in /var/lib/postwright at the first call. */
enum postwright_answer postwright_fix_label(const char* label, size_t length, const char* bases,
                                            struct postwright_row* row);

#ifdef __cplusplus
}
#endif

#endif /* POSTWRIGHT_SQL_POSTGRESQL_LABELS_H_ */
