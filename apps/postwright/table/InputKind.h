#ifndef POSTWRIGHT_APPS_POSTWRIGHT_TABLE_INPUTKIND_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_TABLE_INPUTKIND_H_

#include <string>

namespace postwright {

// What an input is, by looking at its first lines.
enum class InputKind {
  kLabel,      // the text of one label, or nothing that can be told
  kJsonLines,  // the first line is a JSON string or object
  kTable,      // its header names the columns of an address
  kRowsAlone,  // several rows with ZIP codes, under no header that is known
};

// `bytes` is the beginning of the input, in any of the usual encodings. One label is never taken
// for a table: it has no header, and one ZIP code.
InputKind KindOf(const std::string& bytes);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_TABLE_INPUTKIND_H_
