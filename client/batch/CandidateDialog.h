#ifndef POSTWRIGHT_CLIENT_BATCH_CANDIDATEDIALOG_H_
#define POSTWRIGHT_CLIENT_BATCH_CANDIDATEDIALOG_H_

#include <postwright/BatchResultRecord.h>

#include <QDialog>

class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace postwright {

class BatchRuns;

// Asks for the numbers that make one address of a candidate: a house number in its range, a unit in
// its, each whole and as it is written; and asks the service about that address. A candidate
// without a range is asked about at once.
//
//   CandidateDialog dialog(candidate, typed, runs);
//   if (runModalForWindow(dialog, &window) == RunStoppedResponse) take(dialog.answer());
//
// A number outside of its range is told, and so is an address that is not confirmed; either may be
// kept all the same, in the form that the service gives it where it answers. What the service
// answers with a choice of its own, such as a building's units, ends the dialog with that choice.
// The service is asked by a worker, so that the window goes on.
class CandidateDialog final : public QDialog {
  Q_OBJECT

 public:
  // `typed` is the label that is corrected: its lines around the address keep its spelling. Borrows
  // `runs`.
  CandidateDialog(const AddressMatch& candidate, QString typed, BatchRuns& runs,
                  QWidget* parent = nullptr);
  ~CandidateDialog() override;

  // How a record that was asked about the candidate's address stands, after RunStoppedResponse:
  // fixed, by the service or by the person's own word, or open with another choice.
  BatchResultRecord::Values answer() const { return _answer; }

  void setVisible(bool visible) override;
  void reject() override;

 private:
  QLineEdit* addField(QFormLayout& form, const char* key, const QString& low, const QString& high);
  void layOut();
  void typedOn();
  void check();
  void keep();
  void ask();
  void takeOwn(const BatchResultRecord::Values& values);
  void answered(const BatchResultRecordPointer& record);
  QString misfit() const;
  void tell(const QString& text, bool mayBeKept);

  const AddressMatch _candidate;
  const QString _typed;
  BatchRuns& _runs;
  BatchResultRecordPointer _asked;  // null where nothing is under way
  BatchResultRecord::Values _answer;
  bool _keeps = false;           // the person takes the address whatever the service says
  QLineEdit* _number = nullptr;  // null without a range of house numbers
  QLineEdit* _unit = nullptr;
  QLabel* _told = nullptr;
  QPushButton* _check = nullptr;
  QPushButton* _keep = nullptr;

  QString chosenText() const;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_CANDIDATEDIALOG_H_
