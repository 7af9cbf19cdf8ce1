#include "apps/postwright/LineFilter.h"

#include <iostream>

#include "apps/postwright/LineReader.h"
#include "apps/postwright/Output.h"

namespace postwright {

ExitStatus FilterLines(const std::string& input, const std::string& output, Flushing flushing,
                       const std::function<std::string(const LabelLine&)>& answer) {
  LineReader reader(input);
  Output records(output);
  LabelLineParser parser;
  ExitStatus status = kExitDone;
  while (reader.Next()) {
    const LabelLine label = parser.Parse(reader);
    if (!label.problem.empty()) {
      std::cerr << "postwright: line " << reader.Number() << ' ' << label.problem
                << "; an empty record stands in its place\n";
      status = kExitNotALabel;
    }
    records.Write(answer(label));
    if (flushing == Flushing::kEachRecord || !reader.IsLineAtHand()) {
      records.Flush();
    }
  }
  records.Finish();
  return status;
}

}  // namespace postwright
