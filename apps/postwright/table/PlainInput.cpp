#include "apps/postwright/table/PlainInput.h"

#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/stream/LineReader.h"
#include "apps/postwright/table/InputKind.h"

namespace postwright {

PlainInput::PlainInput(const std::string& name, bool isTable, const std::string& columns)
    : input_(name) {
  input_.ReadTo(LineReader::kLimit);
  const InputKind kind = KindOf(input_.Bytes());
  if (kind == InputKind::kJsonLines) {
    throw Failure(input_.Name() + " holds JSON lines; --jsonl reads them", kExitNotALabel);
  }
  const bool isSaid = isTable || !columns.empty();
  if (kind == InputKind::kRowsAlone && !isSaid) {
    throw Failure(input_.Name() +
                      " looks like a table and not like one label; --csv reads it, and --columns "
                      "names its columns, as in --columns name=1,street=2,city=3,state=4,zip=5",
                  kExitNotALabel);
  }
  if (!isSaid && kind != InputKind::kTable) {
    return;
  }
  input_.ReadTo(tables::TextFile::kLargest);
  if (!input_.IsWhole()) {
    throw Failure(input_.Name() + " is larger than 512 MiB; split it into smaller tables");
  }
  table_.emplace(input_.Bytes(), input_.Name(), columns);
}

}  // namespace postwright
