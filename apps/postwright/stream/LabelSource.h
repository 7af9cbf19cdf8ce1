#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LABELSOURCE_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LABELSOURCE_H_

#include <string>

#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/stream/LabelLine.h"
#include "apps/postwright/stream/LineReader.h"
#include "apps/postwright/stream/LineSource.h"
#include "apps/postwright/stream/Progress.h"

namespace postwright {

// The labels of an input, in order; a line that is not a label is reported with its number.
class LabelSource final : public LineSource {
 public:
  // As LineReader's constructor. `progress` takes the reports and outlives the object.
  LabelSource(const std::string& input, Progress& progress) : reader_(input), progress_(progress) {}

  bool Next() override {
    if (!reader_.Next()) {
      return false;
    }
    label_ = parser_.Parse(reader_);
    if (!label_.problem.empty()) {
      progress_.Say("line " + std::to_string(reader_.Number()) + ' ' + label_.problem +
                    "; an empty record takes its place");
      status_ = kExitNotALabel;
    }
    return true;
  }

  bool IsAtHand() const override { return reader_.IsLineAtHand(); }
  const LabelLine& Label() const override { return label_; }
  std::string_view Line() const override { return reader_.Line(); }
  int Descriptor() const override { return reader_.Descriptor(); }
  void ReadSome() override { reader_.ReadSome(); }

  // The lines themselves, for a caller that goes on with them and not with their labels.
  LineReader& Lines() { return reader_; }

  // How many labels there are, before the first was read; nothing where that cannot be known.
  std::optional<std::size_t> Count() const { return reader_.CountLinesAhead(); }

  // kExitNotALabel once a line was not a label.
  ExitStatus Status() const { return status_; }

 private:
  LineReader reader_;
  LabelLineParser parser_;
  Progress& progress_;
  LabelLine label_;
  ExitStatus status_ = kExitDone;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LABELSOURCE_H_
