#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LABELSOURCE_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LABELSOURCE_H_

#include <string>

#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/stream/LabelLine.h"
#include "apps/postwright/stream/LineReader.h"
#include "apps/postwright/stream/Progress.h"

namespace postwright {

// The labels of an input, one after another; a line that is no label is reported with its number.
class LabelSource {
 public:
  // As LineReader's constructor. `progress` takes the reports and outlives the object.
  LabelSource(const std::string& input, Progress& progress) : reader_(input), progress_(progress) {}

  // Goes to the next label, waiting for input where none is at hand. False at the end.
  bool Next() {
    if (!reader_.Next()) {
      return false;
    }
    label_ = parser_.Parse(reader_);
    if (!label_.problem.empty()) {
      progress_.Say("line " + std::to_string(reader_.Number()) + ' ' + label_.problem +
                    "; an empty record stands in its place");
      status_ = kExitNotALabel;
    }
    return true;
  }

  // The label, its problem said where the line is none; until the next call of Next.
  const LabelLine& Label() const { return label_; }

  // What the label is read from, standing at its line.
  LineReader& Reader() { return reader_; }

  // kExitNotALabel once a line was no label.
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
