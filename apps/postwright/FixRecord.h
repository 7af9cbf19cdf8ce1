#ifndef POSTWRIGHT_APPS_POSTWRIGHT_FIXRECORD_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_FIXRECORD_H_

#include <postwright/PostwrightClient.h>

#include <string>

#include "apps/postwright/LabelFix.h"
#include "apps/postwright/stream/LabelLine.h"
#include "apps/postwright/stream/LineRecord.h"

namespace postwright {

struct RecordOptions {
  LabelFix::Asking asking;
  bool explain = false;
  bool candidates = false;
};

// The output line of `postwright fix --jsonl` for one label: the members address, fixed, result and
// status, which mean what they mean in the client's BatchResultRecord, after the id where there
// is one, the confirmation, Confirmation::Code(), "" where no address came back, and the reason, a
// code, or "" where there is nothing to tell. A correction that is doubtful has status 2, an empty
// fixed and the member proposed, the corrected text. With `explain` each record has the members
// confirmation_text and reason_text, the two in words, source and source_text, who said so, and
// changes; with `candidates` the member of that name, what could have been meant (CandidateList).

// Fixes `label` through `client` and returns its record; of a line that is not a label, without
// asking anybody, the record that says so. Blocks as PostwrightClient::fixAddress does.
LineRecord FixRecord(PostwrightClient& client, const LabelLine& label,
                     const RecordOptions& options);

// The record of a label whose worker process died, in the way that `ending` says, as in "was ended
// by signal 9 (Killed)": not answered, since nobody judged the label.
std::string DeadWorkerRecord(const LabelLine& label, const std::string& ending,
                             const RecordOptions& options);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_FIXRECORD_H_
