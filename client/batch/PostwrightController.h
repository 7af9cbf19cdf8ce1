#ifndef POSTWRIGHT_CLIENT_BATCH_POSTWRIGHTCONTROLLER_H_
#define POSTWRIGHT_CLIENT_BATCH_POSTWRIGHTCONTROLLER_H_

#include <postwright/AddressEntry.h>
#include <postwright/BatchOptions.h>
#include <postwright/BatchResultRecord.h>
#include <postwright/ClientExport.h>

#include <QDialog>
#include <QIcon>
#include <QList>
#include <memory>
#include <optional>

namespace postwright {

class BatchWindow;

// The batch window: it asks the service about a list of addresses in the background while the user
// reviews what comes of each, and changes nothing outside itself.
//
//   PostwrightController window(entries, true, CapitalizationMixed, std::nullopt);
//   if (window.exec() == -1000) {  // -1001 after Cancel
//     for (const BatchResultRecordPointer& record : window.results())
//       record->entry()->setValue(record->values().fixed);
//   }
//
// PostwrightClient::fixAddressWithDialog() does this and tells the host. A window serves one run;
// the worker starts when it is first shown. Everything here belongs to the thread of the windows.
// Without options the window opens no box of its own but the designation dialog, and that only for
// a candidate with a range, so a test or a host can drive it: widgets are found by object name
// (scFilter, tvAddresses, bnUpdate, ...), and every action is an operation here too.
class POSTWRIGHT_CLIENT_EXPORT PostwrightController : public QDialog {
  Q_OBJECT

 public:
  // initWithAddresses:removePunctuation:capitalization:mixedCase:. Reads the value of each entry
  // once; none is null. The other three are those of PostwrightClient's setters.
  PostwrightController(const QList<std::shared_ptr<AddressEntry>>& addresses,
                       bool removePunctuation, qint32 capitalization,
                       const std::optional<QString>& mixedCase, QWidget* parent = nullptr);
  // Stops a worker that still runs, without waiting for a silent service.
  ~PostwrightController() override;

  // Has the worker ask `ask` in place of the service: for a host that knows candidates of its own,
  // which the Verify service never names. Before the window is first shown.
  void setAsk(AskFunction ask);

  // Has the window do more than it does by itself. Before the window is first shown.
  void setOptions(const BatchOptions& options);

  // The records in the window whose status is AddressStatusFixed, and with `sameFormForAll` those
  // unchanged ones that are given in another form, in the order of the entries.
  BatchResultRecordList results() const;

  // All records in the window, in the order of the entries: for a host that keeps what became of
  // each. One that is pending has no outcome.
  BatchResultRecordList records() const;

  // Shows the records whose status is selected in the filter, with none of them selected. Only this
  // makes a record leave the table for its status.
  void filterWithStatus();
  void scFilterClick();

  // Shows the detail of the selected record.
  void updateContent();

  // Starts the worker on all records that have no outcome yet.
  void runPostwrightThread();

  // Asks about the selected record with another text. Returns at once: the record is pending until
  // the answer arrives, the window goes on, and Cancel does not wait for a silent service.
  void reFixAddress(const QString& address);
  void bnFixErrorAddressClick();
  void bnFixMultipleAddressClick();
  void bnFixEditedAddressClick();

  // Asks about the selected record with its fault mended as the window proposes, or about all that
  // were turned down for the same.
  void bnUseProposalClick();
  void bnUseProposalsClick();

  // Asks again about all selected records, each with the text that it has.
  void bnAskAgainClick();

  // Takes the selected candidate as the selected record's corrected address, after asking for the
  // unit where it stands for several. For all records of the same text where the user wishes.
  void bnChooseSelectedAddressClick();

  // Takes the edited text itself as the corrected address, where the service found it right.
  void bnUseAddressClick();

  // Takes the text in the field as the corrected address of the selected record, whatever the
  // service says: it is marked as the person's own word.
  void bnKeepTextClick();

  // Leaves the entries of all selected records as they are: unchanged, whatever the service said.
  void bnTakeTypedClick();

  // Takes the text as corrected of all selected records that are doubtful; of one whose number
  // alone is in doubt, the text that there is.
  void bnAcceptDoubtfulClick();

  // Takes the selected records out of the window. Their entries are not written.
  void bnIgnoreClick();

  // Offers to make the change that the person made in the selected record in all others that have
  // the same words and still need a person; asks first, and shows which.
  void sameForAll();

  // Takes the last step back, or takes it again.
  void undo();
  void redo();

  // Selects all segments of the filter.
  void bnShowAllClick();

  // Asks again about all records for which the service failed.
  void bnRetryClick();

  // Ends the run after the record under way, which a service that keeps silent leaves pending; what
  // is there can be applied. bnGoOnClick() asks about the rest.
  void bnStopClick();
  void bnGoOnClick();

  // Stops the worker, waits for it while events are handled, closes the window and ends its modal
  // run with -1001. A worker whose service keeps silent is given a second and then cut short.
  void bnCancelClick();

  // Closes the window and ends its modal run with -1000.
  void bnUpdateClick();

  // Moves the selection to the next record in the table, by -1 to the one before; with `errors` to
  // the next that has an error or several candidates. Stays where there is none.
  void selectRecord(int by, bool errors);

  // Puts the selected records on the clipboard, as labels and as CSV.
  void copy() const;

  // Leaves the window as Escape and its close button do: asks first where the options say so and
  // there is work in it, else is bnCancelClick().
  void leave();

  // The image of a status; null for any but 1 to 3.
  static QIcon iconForStatus(qint32 status);

  void setVisible(bool visible) override;
  void reject() override { leave(); }

 signals:
  // A worker has ended and the window shows all that it found: that of the list, or one that asked
  // about edited records.
  void workerStopped();

 private:
  void windowDidLoad();
  void connectButtons();
  void waitForWorkers();
  void reFix(const QString& address);
  void takeProposals(const BatchResultRecordList& records);

  const std::unique_ptr<BatchWindow> _window;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_POSTWRIGHTCONTROLLER_H_
