#ifndef POSTWRIGHT_CLIENT_BATCH_CANDIDATECHOICE_H_
#define POSTWRIGHT_CLIENT_BATCH_CANDIDATECHOICE_H_

#include <postwright/BatchResultRecord.h>

class QWidget;

namespace postwright {

class BatchWindow;

// Has the person choose `candidate` for `record`: asks for the numbers of its ranges, and the
// service about the address that they make. The record, and its twins where that is wished, then
// take what was confirmed, what the person keeps as the own word, or the choice that is left.
// Nothing changes where the person takes it back.
void chooseCandidate(QWidget& parent, BatchWindow& window, const BatchResultRecordPointer& record,
                     const AddressMatch& candidate);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_CANDIDATECHOICE_H_
