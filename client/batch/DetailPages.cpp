// What the pages of a batch window's detail show of a record: the other half of DetailView.

#include "client/LocalizedString.h"
#include "client/ReviewWords.h"
#include "client/batch/BatchTableModel.h"
#include "client/batch/DetailView.h"
#include "client/batch/MarkedText.h"
#include "client/batch/RowHeights.h"
#include "client/batch/review/BatchTexts.h"
#include "client/batch/review/Explanations.h"
#include "client/batch/review/LongLines.h"
#include "client/suite/StringHelpers.h"
#include "ui_Postwright.h"

namespace postwright {

void DetailView::showTwins(QCheckBox& box, bool isOffered) {
  const qsizetype twins = isOffered ? _countTwins(*_record) : 0;
  box.setVisible(twins > 0);
  box.setChecked(false);
  box.setText(localizedString("SAlsoTwins", twins));
}

void DetailView::showUnchanged(const BatchResultRecord::Values& values) {
  const bool edited = !values.pending && values.address != _record->typed();
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

void DetailView::showMultiple(const BatchResultRecord::Values& values) {
  fillEditor(*_layout.tvMultipleAddress, _drafts.value(_record.get(), values.address));
  showTwins(*_layout.ckTwins, true);
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
  showTwins(*_layout.ckEditTwins, _selectsSeveral);
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

void DetailView::showError(const BatchResultRecord::Values& values) {
  const bool service = values.isUnanswered();
  _layout.txtErrorText->setText(values.result);
  _layout.txtErrorReason->setText(values.remark);
  _layout.txtErrorReason->setVisible(!values.pending && !values.remark.isEmpty());
  _layout.txtErrorHint->setText(localizedString(values.pending ? "SAskingAgain"
                                                : service      ? "SErrorHintService"
                                                               : "SErrorHint"));
  _layout.tvErrorAddress->setAccessibleDescription(values.failure());
  fillEditor(*_layout.tvErrorAddress, _drafts.value(_record.get(), values.address));
  showTwins(*_layout.ckErrorTwins, _selectsSeveral);
}

void DetailView::showProposal(const BatchResultRecord& record, qsizetype alike) {
  const BatchResultRecord::Values values = record.values();
  const bool isOffered = !values.pending && !values.proposal.isEmpty();
  _layout.bnUseProposal->setVisible(isOffered);
  _layout.bnUseProposals->setVisible(isOffered && alike > 1);
  if (isOffered) {
    const QList<Change> changes = findDifferences(values.address, values.proposal).changes;
    const QString word = changes.isEmpty() ? values.proposal : changes.first().to;
    _layout.bnUseProposal->setText(
        StringHelpers::stringWithFormat(localizedString("SUseProposal"), {word}));
    _layout.bnUseProposals->setText(localizedString("SUseProposals", alike));
  }
}

// The same text is left alone, and with it the cursor: the record may be shown again while the user
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

}  // namespace postwright
