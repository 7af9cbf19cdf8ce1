#ifndef POSTWRIGHT_APPS_POSTWRIGHT_TABLE_ROWRECORDS_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_TABLE_ROWRECORDS_H_

#include <QJsonObject>
#include <functional>
#include <string>
#include <string_view>

#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/stream/LineReader.h"
#include "apps/postwright/table/AddressTable.h"
#include "apps/postwright/table/ScratchFile.h"

namespace postwright {

// Whether each label is its line's id as well, for records that hold no label otherwise: a run that
// goes on with them knows by it that they are of the same table.
enum class RowId { kNone, kLabel };

// The labels of a table made into records as a stream is, by several processes where that is wanted
// and gone on with after an interruption.
//
//   RowRecords records(table, kept, RowId::kNone, stream);
//   while (records.Next()) { … records.Record() … }
class RowRecords {
 public:
  // Makes the records of the labels in the file `input`, JSON lines, and writes them to the end of
  // the file `records`, after those that are there.
  using Stream = std::function<ExitStatus(const std::string& input, const std::string& records)>;

  // Has `stream` make the records, in the file `kept` or, where that is "", in one that nobody
  // sees. Throws Failure and ClosedPipe.
  RowRecords(const AddressTable& table, const std::string& kept, RowId id, const Stream& stream);

  // What the stream returned.
  ExitStatus Status() const { return status_; }

  // Goes to the record of the next label; false where the run ended before it.
  bool Next() { return reader_.Next(); }

  // That record, as it was written and as it is read.
  std::string_view Line() const { return reader_.Line(); }
  QJsonObject Record() const;

 private:
  const ScratchFile labels_;
  const ScratchFile scratch_;
  const std::string path_;
  const ExitStatus status_;
  LineReader reader_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_TABLE_ROWRECORDS_H_
