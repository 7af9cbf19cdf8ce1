#ifndef POSTWRIGHT_CORE_LABEL_LABELCANDIDATES_H_
#define POSTWRIGHT_CORE_LABEL_LABELCANDIDATES_H_

#include <postwright/AddressLines.h>
#include <postwright/AddressMatch.h>

namespace postwright {

// Returns a candidate of an answer to the question of `lines` within the label: it is put among the
// lines that were not asked about, as AddressLines::PutBack() would put it. Where the whole text
// was asked about it has them already. Pure, for any thread.
AddressMatch WithinLabel(const AddressLines& lines, const AddressMatch& candidate);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_LABEL_LABELCANDIDATES_H_
