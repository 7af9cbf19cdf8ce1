#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_RECORDSAGAIN_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_RECORDSAGAIN_H_

#include <string>
#include <string_view>

#include "apps/postwright/stream/LabelLine.h"
#include "apps/postwright/stream/LineReader.h"
#include "apps/postwright/stream/LineSource.h"

namespace postwright {

// Which records are made again.
enum class Retry {
  kUnanswered,  // of labels that nobody judged
  kFailed       // and of those that were turned down
};

// Whether this one is. A label without a text has none to ask about.
bool IsMadeAgain(std::string_view record, Retry retry);

// The records of a file as lines: those that are made again want a new record, and the others have
// theirs. A record holds its label.
class RecordsAgain final : public LineSource {
 public:
  // The file holds records alone; what was not written to its end is passed over. Throws Failure
  // where it cannot be opened.
  RecordsAgain(const std::string& path, Retry retry) : reader_(path), retry_(retry) {}

  bool IsAtHand() const override { return true; }
  bool Next() override;
  const LabelLine& Label() const override { return label_; }
  std::string_view Line() const override { return reader_.Line(); }
  std::string_view Record() const override { return record_; }
  int Descriptor() const override { return reader_.Descriptor(); }
  void ReadSome() override { reader_.ReadSome(); }

 private:
  LineReader reader_;
  LabelLineParser parser_;
  const Retry retry_;
  LabelLine label_;
  std::string record_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_RECORDSAGAIN_H_
