#include "client/batch/DetailView.h"

#include <postwright/BatchOptions.h>

#include <QApplication>

#include "client/LocalizedString.h"
#include "client/ReviewWords.h"
#include "client/batch/AddressDelegate.h"
#include "client/batch/BatchTableModel.h"
#include "client/batch/MarkedText.h"
#include "client/batch/RowHeights.h"
#include "client/batch/review/BatchTexts.h"
#include "client/batch/review/Explanations.h"
#include "client/batch/review/LongLines.h"
#include "ui_Postwright.h"

namespace postwright {
namespace {

QString originalText(const BatchResultRecord& record) {
  return record.entry() != nullptr ? record.entry()->value() : record.values().address;
}

void showTwins(QCheckBox& box, qsizetype twins) {
  box.setVisible(twins > 0);
  box.setChecked(false);
  box.setText(localizedString("SAlsoTwins", twins));
}

}  // namespace

DetailView::DetailView(Ui::Postwright& layout) : _layout(layout) {
  setFieldFont(tableFont());
  QFont strong = _layout.txtErrorText->font();
  strong.setBold(true);
  _layout.txtErrorText->setFont(strong);
  QTableView* matches = _layout.tvMatches;
  matches->setModel(&_matches);
  matches->setItemDelegate(new AddressDelegate(matches));
  matches->horizontalHeader()->hide();
  matches->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  connect(matches->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { _layout.bnChooseSelectedAddress->setEnabled(selectedMatch() >= 0); });
  for (QPlainTextEdit* field :
       {_layout.tvErrorAddress, _layout.tvMultipleAddress, _layout.tvEditAddress}) {
    connect(field, &QPlainTextEdit::textChanged, this, [this, field] { takeDraft(*field); });
  }
  connect(_layout.tvEditFixed, &QPlainTextEdit::textChanged, this, &DetailView::takeOwnDraft);
  for (const QPushButton* restore :
       {_layout.bnRestoreError, _layout.bnRestoreMultiple, _layout.bnRestoreEdit}) {
    connect(restore, &QPushButton::clicked, this, &DetailView::restoreOriginal);
  }
  for (const QPushButton* edit : {_layout.bnEditUnchanged, _layout.bnEditFixed}) {
    connect(edit, &QPushButton::clicked, this, [this] {
      showEditor();
      _layout.tvEditAddress->setFocus();
    });
  }
  connect(_layout.bnMarkRest, &QPushButton::clicked, this,
          [this] { showFixed(_record->values(), true); });
  setOptions({});
}

void DetailView::setOptions(const BatchOptions& options) {
  _editsAny = options.editsAnyRecord;
  _selectsSeveral = options.selectsSeveral;
  for (QPushButton* button : {_layout.bnEditUnchanged, _layout.bnEditFixed, _layout.bnKeepError,
                              _layout.bnKeepMultiple}) {
    button->setVisible(_editsAny);
  }
}

void DetailView::setFieldFont(const QFont& font) {
  for (QWidget* field :
       QList<QWidget*>{_layout.tvUnchangedAddress, _layout.tvFixedBefore, _layout.tvFixedAfter,
                       _layout.tvMultipleAddress, _layout.tvErrorAddress, _layout.tvEditAddress,
                       _layout.tvEditFixed, _layout.tvMatches}) {
    field->setFont(font);
  }
}

void DetailView::showNothing() {
  _record = nullptr;
  _matches.clear();
  showPage(_layout.vwNone);
}

void DetailView::showSeveral(const QString& text, qsizetype doubtful) {
  _record = nullptr;
  _layout.bnAcceptDoubtful->setText(localizedString("SAcceptDoubtful", doubtful));
  _layout.bnAcceptDoubtful->setVisible(doubtful > 0);
  _layout.txtSeveral->setText(text);
  showPage(_layout.vwSeveral);
}

void DetailView::showRecord(const BatchResultRecordPointer& record, qsizetype twins) {
  _record = nullptr;  // what is put into the fields now is no draft
  const BatchResultRecord::Values values = record->values();
  const bool ownPage =
      values.status == AddressStatusMultiple || values.status == AddressStatusError;
  const bool edits = !ownPage && (_edited == record.get() || hasDraft(*record));
  _edited = edits ? record.get() : nullptr;
  _record = record;
  if (_edited != nullptr) {
    showEdited(values);
    showPage(_layout.vwEdit);
    return;
  }
  switch (values.status) {
    case AddressStatusUnchanged:
      showUnchanged(values);
      showPage(_layout.vwUnchanged);
      break;
    case AddressStatusFixed:
      showFixed(values, false);
      showPage(_layout.vwFixed);
      break;
    case AddressStatusMultiple:
      showMultiple(values, twins);
      showPage(_layout.vwMultiple);
      break;
    case AddressStatusError:
      showError(values, twins);
      showPage(_layout.vwError);
      break;
  }
}

void DetailView::showEditor() {
  if (_editsAny && _record != nullptr && editor() == nullptr) {
    _edited = _record.get();
    showRecord(BatchResultRecordPointer(_record), 0);
  }
}

void DetailView::leaveEditor() {
  if (_record != nullptr && _edited == _record.get() && !hasDraft(*_record)) {
    _edited = nullptr;
    showRecord(BatchResultRecordPointer(_record), 0);
  }
}

void DetailView::forgetDraft(const BatchResultRecord& record) {
  _drafts.remove(&record);
  _ownDrafts.remove(&record);
  if (_edited == &record) {
    _edited = nullptr;
  }
}

bool DetailView::hasDraft(const BatchResultRecord& record) const {
  return _drafts.contains(&record) || _ownDrafts.contains(&record);
}

// The keyboard goes back to the list where what it was in goes away: the record is settled, and the
// next key is for another.
void DetailView::showPage(QWidget* page) {
  QStackedWidget* content = _layout.vwContent;
  if (page != content->currentWidget() && content->isAncestorOf(QApplication::focusWidget())) {
    _layout.tvAddresses->setFocus();
  }
  content->setEnabled(true);
  content->setCurrentWidget(page);
}

void DetailView::showUnchanged(const BatchResultRecord::Values& values) {
  const bool edited = !values.pending && values.address != originalText(*_record);
  const bool wellWritten = values.isWellWritten();
  const QString follows = localizedString(edited                ? "SUseEdited"
                                          : _record->isFormed() ? "SInForm"
                                                                : "SEntryStays");
  _layout.txtUnchanged->setText(values.pending ? localizedString("SNotYetChecked")
                                : !wellWritten ? whyText(values)
                                               : foundText(values) + u' ' + follows);
  _layout.tvUnchangedAddress->setPlainText(
      cutLongLines(wellWritten ? values.fixed : values.address));
  _layout.bnUseAddress->setVisible(edited);
}

void DetailView::showFixed(const BatchResultRecord::Values& values, bool whole) {
  const QString note = values.fixed.isEmpty() ? localizedString("SFixedBlank")
                       : values.own           ? localizedString("SFixedOwn")
                                              : sentenceOf(values.confirmation);
  _layout.txtFixedNote->setText(note);
  _layout.txtFixedNote->setVisible(!note.isEmpty());
  const qsizetype most = whole ? kMostOfLine : kShownOfLine;
  const QString before = cutLongLines(values.address, most);
  const QString after = cutLongLines(values.fixed, most);
  const qsizetype left = values.address.size() + values.fixed.size() - before.size() - after.size();
  _layout.txtCut->setText(left > 0 ? localizedString("SCut", left) : QString());
  _layout.bnMarkRest->setVisible(left > 0 && !whole);
  const Differences differences = findDifferences(before, after);
  QList<MarkTip> typedTips;
  QList<MarkTip> fixedTips;
  for (const ExplainedChange& change : explainedChanges(values)) {
    typedTips.append({change.typed, change.text});
    fixedTips.append({change.corrected, change.text});
  }
  showMarked(*_layout.tvFixedBefore, before, differences.removed, MarkKind::Removed,
             differences.movedFrom, typedTips);
  showMarked(*_layout.tvFixedAfter, after, differences.added, MarkKind::Added, differences.movedTo,
             fixedTips);
  constexpr qsizetype kMostChanges = 8;
  const QStringList changes =
      fixedTips.isEmpty() ? QStringList() : changeTexts(values, differences);
  _layout.txtChanges->setText(firstChanges(changes, kMostChanges).join(u'\n'));
  _layout.txtChanges->setVisible(!changes.isEmpty());
}

void DetailView::showMultiple(const BatchResultRecord::Values& values, qsizetype twins) {
  fillEditor(*_layout.tvMultipleAddress, _drafts.value(_record.get(), values.address));
  showTwins(*_layout.ckTwins, twins);
  const bool isDoubtful = values.isDoubtful();
  const QString why = isDoubtful ? values.remark : unconfirmedText(values.confirmation);
  QStringList doubts{why};
  if (isDoubtful) {
    for (const ExplainedChange& change : explainedChanges(values)) {
      if (IsDoubt(change.rule) && !doubts.contains(change.text)) {
        doubts.append(change.text);
      }
    }
  }
  constexpr qsizetype kMostDoubts = 4;
  _layout.txtDoubt->setText(doubts.first(std::min(doubts.size(), kMostDoubts)).join(u'\n'));
  _layout.txtDoubt->setVisible(isDoubtful || (!why.isEmpty() && !values.candidates.isEmpty()));
  _layout.txtMatches->setText(localizedString(!isDoubtful                  ? "SMatches"
                                              : values.matches.size() == 1 ? "SMatchesTyped"
                                                                           : "SMatchesDoubtful"));
  _layout.tvMatches->setAccessibleDescription(why);
  showMatches(values);
}

void DetailView::showEdited(const BatchResultRecord::Values& values) {
  fillEditor(*_layout.tvEditAddress, _drafts.value(_record.get(), values.address));
  const bool known = !values.pending && !values.fixed.isEmpty();
  fillEditor(*_layout.tvEditFixed,
             _ownDrafts.value(_record.get(), known ? values.fixed : values.address));
}

// Says which of the two texts of a doubtful correction a candidate is, and marks what it changes.
void DetailView::nameMatch(QStandardItem& item, const QString& typed) {
  const QString text = item.text();
  const QString name = localizedString(text == typed ? "SAsTyped" : "SAsCorrected");
  const Differences differences = findDifferences(cutLongLines(typed), cutLongLines(text));
  const CellMarks marks{MarkKind::Added, differences.added, differences.movedTo};
  item.setData(QVariant::fromValue(marks), BatchTableModel::MarksRole);
  item.setAccessibleText(name + QStringLiteral(": ") + spokenText(text, changeTexts(differences)));
  _matches.setVerticalHeaderItem(item.row(), new QStandardItem(name));
}

void DetailView::showMatches(const BatchResultRecord::Values& values) {
  _matches.clear();
  RowHeights heights(_layout.tvMatches->font());
  for (int row = 0; row < values.matches.size(); ++row) {
    const QString text = values.matches.at(row)->addressTemplate();
    auto* item = new QStandardItem(text);
    _matches.appendRow(item);
    _layout.tvMatches->setRowHeight(row, heights.heightFor(text));
    if (values.isDoubtful()) {
      nameMatch(*item, values.address);
    }
  }
  _layout.tvMatches->verticalHeader()->setVisible(values.isDoubtful());
  _layout.bnChooseSelectedAddress->setEnabled(false);
}

void DetailView::showError(const BatchResultRecord::Values& values, qsizetype twins) {
  const bool service = values.isUnanswered();
  _layout.txtErrorText->setText(values.result);
  _layout.txtErrorReason->setText(values.remark);
  _layout.txtErrorReason->setVisible(!values.pending && !values.remark.isEmpty());
  _layout.txtErrorHint->setText(localizedString(values.pending ? "SAskingAgain"
                                                : service      ? "SErrorHintService"
                                                               : "SErrorHint"));
  fillEditor(*_layout.tvErrorAddress, _drafts.value(_record.get(), values.address));
  showTwins(*_layout.ckErrorTwins, _selectsSeveral ? twins : 0);
}

// The same text is left alone, and with it the cursor: the record may be shown anew while the user
// types.
void DetailView::fillEditor(QPlainTextEdit& editor, const QString& text) {
  const QString shown = cutLongLines(text, kMostOfLine);
  const bool cut = shown.size() != text.size();
  editor.setReadOnly(cut);
  editor.setToolTip(cut ? localizedString("SLongLine") : QString());
  if (editor.toPlainText() != shown) {
    const QSignalBlocker silence(editor);
    editor.setPlainText(shown);
  }
}

// Text that is back as it was is no draft.
void DetailView::takeDraft(const QPlainTextEdit& editor) {
  if (_record == nullptr || &editor != this->editor() || editor.isReadOnly()) {
    return;
  }
  const QString text = editor.toPlainText();
  if (text == _record->values().address) {
    _drafts.remove(_record.get());
  } else {
    _drafts.insert(_record.get(), text);
  }
}

void DetailView::takeOwnDraft() {
  if (_record != nullptr && _edited == _record.get()) {
    _ownDrafts.insert(_record.get(), _layout.tvEditFixed->toPlainText());
  }
}

void DetailView::restoreOriginal() {
  if (_record != nullptr && editor() != nullptr) {
    fillEditor(*editor(), originalText(*_record));
    takeDraft(*editor());
    editor()->setFocus();
  }
}

QPlainTextEdit* DetailView::editor() const {
  const QWidget* page = _layout.vwContent->currentWidget();
  return page == _layout.vwError      ? _layout.tvErrorAddress
         : page == _layout.vwMultiple ? _layout.tvMultipleAddress
         : page == _layout.vwEdit     ? _layout.tvEditAddress
                                      : nullptr;
}

QWidget* DetailView::firstControl() const {
  const QWidget* page = _layout.vwContent->currentWidget();
  if (page == _layout.vwMultiple) {
    return _layout.tvMatches;
  }
  return page == _layout.vwSeveral ? static_cast<QWidget*>(_layout.bnAskAgain) : editor();
}

QString DetailView::editedText() const {
  const QPlainTextEdit* field = editor();
  if (field == nullptr || _record == nullptr) {
    return {};
  }
  return field->isReadOnly() ? _record->values().address : field->toPlainText();
}

QString DetailView::ownText() const {
  const QPlainTextEdit* field = _layout.tvEditFixed;
  if (_layout.vwContent->currentWidget() != _layout.vwEdit || _record == nullptr) {
    return editedText();
  }
  return field->isReadOnly() ? _record->values().fixed : field->toPlainText();
}

int DetailView::selectedMatch() const {
  const QModelIndexList rows = _layout.tvMatches->selectionModel()->selectedRows();
  return rows.isEmpty() ? -1 : rows.first().row();
}

bool DetailView::isTwinsChecked() const {
  const QWidget* page = _layout.vwContent->currentWidget();
  const QCheckBox* box = page == _layout.vwError ? _layout.ckErrorTwins : _layout.ckTwins;
  return page != _layout.vwEdit && !box->isHidden() && box->isChecked();
}

}  // namespace postwright
