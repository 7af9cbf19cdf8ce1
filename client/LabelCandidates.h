#ifndef POSTWRIGHT_CLIENT_LABELCANDIDATES_H_
#define POSTWRIGHT_CLIENT_LABELCANDIDATES_H_

#include <postwright/AddressLines.h>
#include <postwright/PostwrightClient.h>

namespace postwright {

// Puts the candidates of an answer to the question of `lines` back into the label: each is put
// among the lines that were not asked about, as AddressLines::PutBack() would put it, and so do the
// texts that show it.
void putCandidatesBack(const AddressLines& lines, AddressFix& answer);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_LABELCANDIDATES_H_
