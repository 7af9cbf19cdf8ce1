#ifndef POSTWRIGHT_CLIENT_BATCH_DETAILVIEW_H_
#define POSTWRIGHT_CLIENT_BATCH_DETAILVIEW_H_

#include <postwright/BatchResultRecord.h>

#include <QHash>
#include <QObject>
#include <QStandardItemModel>
#include <functional>
#include <utility>

namespace Ui {
class Postwright;
}
class QCheckBox;
class QPlainTextEdit;

namespace postwright {

struct BatchOptions;

// The lower part of the batch window: the detail of one record, or what can be done with several.
// Text that the user has typed and not yet had checked stays with its record while others are
// looked at.
class DetailView final : public QObject {
  Q_OBJECT

 public:
  // Fills the pages of `layout`, which outlives the view.
  explicit DetailView(Ui::Postwright& layout);

  // Before anything is shown.
  void setOptions(const BatchOptions& options);
  void setFieldFont(const QFont& font);

  void showNothing();
  // Tells how many more records of the list have the text of one and stand as it does.
  using CountTwins = std::function<qsizetype(const BatchResultRecord&)>;
  void setCountTwins(CountTwins count) { _countTwins = std::move(count); }

  void showRecord(const BatchResultRecordPointer& record);
  // Offers to have the fault of `record` mended, where it can be, and that of all `alike`.
  void showProposal(const BatchResultRecord& record, qsizetype alike);
  // `doubtful` of those that are selected can be accepted.
  void showSeveral(const QString& text, qsizetype doubtful);

  // Lets a record be edited that has no field of its own for that: the page with both texts.
  void showEditor();
  // Back from that page, unless something was typed.
  void leaveEditor();

  // Drops what the user has typed for `record` and not had checked.
  void forgetDraft(const BatchResultRecord& record);
  bool hasDrafts() const { return !_drafts.isEmpty() || !_ownDrafts.isEmpty(); }

  // The field of the page that is shown in which the user edits the address; null where there is
  // none.
  QPlainTextEdit* editor() const;
  // Where the keyboard goes when it enters the detail; null where there is nothing to do.
  QWidget* firstControl() const;
  // The text that is to be asked about: that of editor(), or the record's own where that has a line
  // too long to be edited.
  QString editedText() const;
  // The text that the person wants to have kept as it is.
  QString ownText() const;

  int selectedMatch() const;
  // The choice, or the new text, is to be taken for all of the same text.
  bool isTwinsChecked() const;

 private:
  void showUnchanged(const BatchResultRecord::Values& values);
  void showFixed(const BatchResultRecord::Values& values, bool whole);
  void showMultiple(const BatchResultRecord::Values& values);
  void showError(const BatchResultRecord::Values& values);
  void showEdited(const BatchResultRecord::Values& values);
  void showTwins(QCheckBox& box, bool isOffered);
  void showPage(QWidget* page);
  void fillEditor(QPlainTextEdit& editor, const QString& text);
  void showMatches(const BatchResultRecord::Values& values);
  void nameMatch(QStandardItem& item, const QString& typed);
  void takeDraft(const QPlainTextEdit& editor);
  void takeOwnDraft();
  void restoreOriginal();
  bool hasDraft(const BatchResultRecord& record) const;

  Ui::Postwright& _layout;
  QStandardItemModel _matches;
  BatchResultRecordPointer _record;
  const BatchResultRecord* _edited = nullptr;  // the one on the page with both texts
  bool _editsAny = false;
  bool _selectsSeveral = false;
  CountTwins _countTwins;
  QHash<const BatchResultRecord*, QString> _drafts;
  QHash<const BatchResultRecord*, QString> _ownDrafts;  // of corrected texts
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_DETAILVIEW_H_
