#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_RECORDFORM_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_RECORDFORM_H_

#include <string>
#include <string_view>

#include "apps/postwright/stream/LabelLine.h"
#include "apps/postwright/stream/LineReader.h"

namespace postwright {

// What the records of a run look like, for one that goes on with those of another.
class RecordForm {
 public:
  virtual ~RecordForm() = default;

  // Whose records they are, for messages: "a fix".
  virtual std::string Run() const = 0;

  // Whether `line`, without its line feed, is one at all.
  virtual bool IsRecord(std::string_view line) const = 0;

  // Whether the record at which `record` stands is that of `label`.
  virtual bool IsOf(const LineReader& record, const LabelLine& label) = 0;
};

// Those of `postwright fix --jsonl`, which hold their label.
class FixRecordForm final : public RecordForm {
 public:
  std::string Run() const override { return "a fix"; }
  bool IsRecord(std::string_view line) const override;
  bool IsOf(const LineReader& record, const LabelLine& label) override;

 private:
  LabelLineParser parser_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_RECORDFORM_H_
