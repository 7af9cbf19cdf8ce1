#include "client/batch/CandidateChoice.h"

#include "client/LocalizedString.h"
#include "client/batch/BatchWindow.h"
#include "client/batch/CandidateDialog.h"
#include "client/suite/ModalRun.h"

namespace postwright {

void chooseCandidate(QWidget& parent, BatchWindow& window, const BatchResultRecordPointer& record,
                     const AddressMatch& candidate) {
  const QString typed = record->values().address;
  const BatchResultRecordList chosen = window.withTwins(record);
  CandidateDialog dialog(candidate, typed, window.runs);
  if (runModalForWindow(dialog, &parent) != RunStoppedResponse) {
    return;
  }
  const BatchResultRecord::Values answer = dialog.answer();
  window.steps.take(localizedString("SStepChoose", chosen.size()), chosen,
                    [&](BatchResultRecord::Values& values) {
                      const QString original = values.address;
                      values = answer;
                      // What is taken is told apart from what was asked about first.
                      values.address =
                          answer.status == AddressStatusMultiple ? answer.address : original;
                    });
}

}  // namespace postwright
