#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_EARLIERRECORDS_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_EARLIERRECORDS_H_

#include <sys/types.h>
#include <unistd.h>

#include <string>
#include <string_view>

#include "apps/postwright/stream/LabelLine.h"
#include "apps/postwright/stream/LineReader.h"

namespace postwright {

// The records that an interrupted run of `postwright fix --jsonl` left in its output file, and the
// place behind them where another run goes on.
//
//   EarlierRecords earlier("fixed.jsonl", reader.Descriptor());
//   while (earlier.Next()) earlier.Check(the label of the next input line);
//   Output output(earlier.Continue(), "fixed.jsonl");
//
// The file is changed by Continue alone. While the object lives, no other run can open the file so.
class EarlierRecords {
 public:
  // Opens the file, which is made where it is not there. `input` is the descriptor of the labels.
  // Throws Failure where the file cannot be opened, is no plain file, is being written by another
  // run, is the input, or does not begin as records do.
  EarlierRecords(const std::string& path, int input);
  EarlierRecords(const EarlierRecords&) = delete;
  EarlierRecords& operator=(const EarlierRecords&) = delete;

  // Goes to the next whole record; a last line that was not written to its end is none. Throws
  // Failure where the file cannot be read.
  bool Next();

  // Throws Failure unless the record is one of `label`, by its address and id. No label: the input
  // has fewer lines.
  void Check(const LabelLine* label);

  // The record, as LineReader::Line().
  std::string_view Line() const { return reader_.Line(); }

  // Cuts a last line off that was not written to its end, and returns the descriptor, the object's
  // own, standing behind the last record. After Next() has returned false.
  int Continue();

 private:
  void CheckFile(int input) const;
  [[noreturn]] void Refuse(const std::string& reason) const;
  [[noreturn]] void Fail(const std::string& what) const;

  std::string path_;
  class Descriptor {
   public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { close(number_); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    operator int() const { return number_; }

   private:
    int number_;
  };
  Descriptor descriptor_;
  LineReader reader_;
  LabelLineParser parser_;
  off_t length_ = 0;  // of the whole records so far
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_EARLIERRECORDS_H_
