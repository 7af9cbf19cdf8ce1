#ifndef POSTWRIGHT_CLIENT_BATCH_DETAILVIEW_H_
#define POSTWRIGHT_CLIENT_BATCH_DETAILVIEW_H_

#include <postwright/BatchResultRecord.h>

#include <QHash>
#include <QObject>
#include <QStringListModel>

namespace Ui {
class Postwright;
}
class QPlainTextEdit;

namespace postwright {

// The lower part of the batch window: the detail of one record. Text that the user has typed and
// not yet had checked stays with its record while others are looked at.
class DetailView final : public QObject {
  Q_OBJECT

 public:
  // Fills the pages of `layout`, which outlives the view.
  explicit DetailView(Ui::Postwright& layout);

  void showNothing();
  // `twins` more records of the list have the same text and the same candidates.
  void showRecord(const BatchResultRecordPointer& record, qsizetype twins);

  // Drops what the user has typed for `record` and not had checked.
  void forgetDraft(const BatchResultRecord& record) { _drafts.remove(&record); }

  // The field of the page that is shown in which the user edits; null where there is none.
  QPlainTextEdit* editor() const;
  // Where the keyboard goes when it enters the detail; null where there is nothing to do.
  QWidget* firstControl() const;

  int selectedMatch() const;
  bool isTwinsChecked() const;

 private:
  void showUnchanged(const BatchResultRecord::Values& values);
  void showFixed(const BatchResultRecord::Values& values);
  void showMultiple(const BatchResultRecord::Values& values, qsizetype twins);
  void showError(const BatchResultRecord::Values& values);
  void showPage(QWidget* page);
  void fillEditor(QPlainTextEdit& editor, const QString& address);
  void showMatches(const QList<PostwrightSelectorPointer>& matches);
  void takeDraft(const QPlainTextEdit& editor);
  void restoreOriginal();

  Ui::Postwright& _layout;
  QStringListModel _matches;
  BatchResultRecordPointer _record;
  QHash<const BatchResultRecord*, QString> _drafts;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_DETAILVIEW_H_
