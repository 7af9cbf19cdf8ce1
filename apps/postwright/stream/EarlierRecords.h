#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_EARLIERRECORDS_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_EARLIERRECORDS_H_

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>

#include "apps/postwright/stream/LabelLine.h"
#include "apps/postwright/stream/LineReader.h"
#include "apps/postwright/stream/RecordForm.h"

namespace postwright {

// The records that an interrupted run of `postwright fix --jsonl`, or `parse`, left in its output
// file, and the place after them where another run goes on.
//
//   EarlierRecords earlier("fixed.jsonl", reader.Descriptor(), form);
//   while (earlier.Next()) earlier.Check(the label of the next input line);
//   earlier.Settle();
//   Output again(earlier.BeginAgain(), …);  … a record for each, old or new …; again.Finish();
//   earlier.EndAgain();
//   Output output(earlier.Continue(), "fixed.jsonl");
//
// Records that are made again go to a file beside it, "fixed.jsonl.again", which takes its place
// once it has them all: whoever reads it finds it whole at any time. Where the run is killed before
// that, the next one finds in the file beside it what was answered.
//
// Nothing is changed before Settle. While the object lives, no other run can open the file so.
class EarlierRecords {
 public:
  // Opens the file, which is made where it is not there. `input` is the descriptor of the labels,
  // `form` says what its records look like and is borrowed.
  // Throws Failure where the file cannot be opened, is not a plain file, is being written by
  // another run, is the input, or does not begin as records do.
  EarlierRecords(const std::string& path, int input, RecordForm& form);
  ~EarlierRecords();
  EarlierRecords(const EarlierRecords&) = delete;
  EarlierRecords& operator=(const EarlierRecords&) = delete;

  // Goes to the next whole record; a last line that was not written to its end is none. Throws
  // Failure where the file cannot be read.
  bool Next();

  // Throws Failure unless the record is that of `label`. No label: the input has fewer lines.
  void Check(const LabelLine* label);

  // The record, as LineReader::Line(); the newest, where one was made again.
  std::string_view Line() const { return isMadeAgain_ ? again_->Line() : reader_->Line(); }

  // Has what a killed run made again in its place, and a last line that was not written to its end
  // cut off. After Next() has returned false.
  void Settle();

  // Where the records are now, links resolved.
  const std::string& Path() const { return path_; }

  // Returns the descriptor, the object's own, of a new empty file beside it.
  int BeginAgain();

  // The new file has a record for each: it takes the place of the old one. Or, where the run ends
  // before that, it has those of the first ones only, and Settle puts them in their places.
  void EndAgain();

  // Returns the descriptor, the object's own, standing after the last record.
  int Continue();

 private:
  void Open();
  void CheckFile(int input) const;
  void CheckRecord(LineReader& reader, const std::string& whose, const LabelLine* label);
  std::string AgainPath() const { return path_ + ".again"; }
  void Merge();
  [[noreturn]] void Refuse(const std::string& reason) const;
  [[noreturn]] void Fail(const std::string& what, const std::string& path) const;

  const std::string name_;  // as it was given
  std::string path_;
  int descriptor_ = -1;
  int beside_ = -1;
  std::optional<LineReader> reader_;
  std::optional<LineReader> again_;  // what a killed run made again, up to its last whole record
  RecordForm& form_;
  off_t length_ = 0;  // of the whole records so far
  bool isMadeAgain_ = false;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_EARLIERRECORDS_H_
