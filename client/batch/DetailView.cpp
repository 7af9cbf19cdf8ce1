#include "client/batch/DetailView.h"

#include <QApplication>

#include "client/LocalizedString.h"
#include "client/batch/DifferenceFormat.h"
#include "client/batch/RowHeights.h"
#include "client/batch/review/BatchTexts.h"
#include "ui_Postwright.h"

namespace postwright {
namespace {

void showMarked(QTextEdit& field, const QString& text, const QList<TextMark>& marks,
                MarkKind kind) {
  field.setPlainText(text);
  const QTextCharFormat format = markFormat(kind, field.palette());
  QTextCursor cursor(field.document());
  for (const TextMark& mark : marks) {
    cursor.setPosition(static_cast<int>(mark.start));
    cursor.setPosition(static_cast<int>(mark.start + mark.length), QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(format);
  }
}

QString originalText(const BatchResultRecord& record) {
  return record.entry() != nullptr ? record.entry()->value() : record.values().address;
}

}  // namespace

DetailView::DetailView(Ui::Postwright& layout) : _layout(layout) {
  for (QWidget* field :
       QList<QWidget*>{_layout.tvUnchangedAddress, _layout.tvFixedBefore, _layout.tvFixedAfter,
                       _layout.tvMultipleAddress, _layout.tvErrorAddress}) {
    field->setFont(tableFont());
  }
  QFont strong = _layout.txtErrorText->font();
  strong.setBold(true);
  _layout.txtErrorText->setFont(strong);
  QTableView* matches = _layout.tvMatches;
  matches->setModel(&_matches);
  matches->setFont(tableFont());
  matches->horizontalHeader()->hide();
  connect(matches->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { _layout.bnChooseSelectedAddress->setEnabled(selectedMatch() >= 0); });
  for (QPlainTextEdit* field : {_layout.tvErrorAddress, _layout.tvMultipleAddress}) {
    connect(field, &QPlainTextEdit::textChanged, this, [this, field] { takeDraft(*field); });
  }
  for (const QPushButton* restore : {_layout.bnRestoreError, _layout.bnRestoreMultiple}) {
    connect(restore, &QPushButton::clicked, this, &DetailView::restoreOriginal);
  }
}

void DetailView::showNothing() {
  _record = nullptr;
  _matches.setStringList({});
  showPage(_layout.vwNone);
}

void DetailView::showRecord(const BatchResultRecordPointer& record, qsizetype twins) {
  _record = nullptr;  // what is put into the fields now is no draft
  const BatchResultRecord::Values values = record->values();
  QWidget* page = _layout.vwNone;
  switch (values.status) {
    case AddressStatusUnchanged:
      page = _layout.vwUnchanged;
      break;
    case AddressStatusFixed:
      page = _layout.vwFixed;
      break;
    case AddressStatusMultiple:
      page = _layout.vwMultiple;
      break;
    case AddressStatusError:
      page = _layout.vwError;
      break;
  }
  _record = record;
  if (page == _layout.vwUnchanged) {
    showUnchanged(values);
  } else if (page == _layout.vwFixed) {
    showFixed(values);
  } else if (page == _layout.vwMultiple) {
    showMultiple(values, twins);
  } else if (page == _layout.vwError) {
    showError(values);
  }
  showPage(page);
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
  _layout.txtUnchanged->setText(localizedString(values.pending ? "SNotYetChecked"
                                                : edited       ? "SFoundRightEdited"
                                                               : "SFoundRight"));
  _layout.tvUnchangedAddress->setPlainText(values.address);
  _layout.bnUseAddress->setVisible(edited);
}

void DetailView::showFixed(const BatchResultRecord::Values& values) {
  _layout.txtFixedNote->setText(localizedString("SFixedBlank"));
  _layout.txtFixedNote->setVisible(values.fixed.isEmpty());
  const Differences differences = findDifferences(values.address, values.fixed);
  showMarked(*_layout.tvFixedBefore, values.address, differences.removed, MarkKind::Removed);
  showMarked(*_layout.tvFixedAfter, values.fixed, differences.added, MarkKind::Added);
}

void DetailView::showMultiple(const BatchResultRecord::Values& values, qsizetype twins) {
  fillEditor(*_layout.tvMultipleAddress, values.address);
  _layout.ckTwins->setVisible(twins > 0);
  _layout.ckTwins->setChecked(false);
  _layout.ckTwins->setText(localizedString("SAlsoTwins", twins));
  showMatches(values.matches);
}

void DetailView::showMatches(const QList<PostwrightSelectorPointer>& matches) {
  QStringList templates;
  for (const PostwrightSelectorPointer& match : matches) {
    templates.append(match->addressTemplate());
  }
  _matches.setStringList(templates);
  RowHeights heights(_layout.tvMatches->font());
  for (int row = 0; row < templates.size(); ++row) {
    _layout.tvMatches->setRowHeight(row, heights.heightFor(templates.at(row)));
  }
  _layout.bnChooseSelectedAddress->setEnabled(false);
}

void DetailView::showError(const BatchResultRecord::Values& values) {
  const bool service = values.isUnanswered();
  _layout.txtErrorText->setText(values.result);
  _layout.txtErrorHint->setText(localizedString(values.pending ? "SAskingAgain"
                                                : service      ? "SErrorHintService"
                                                               : "SErrorHint"));
  fillEditor(*_layout.tvErrorAddress, values.address);
}

// The same text is left alone, and with it the cursor: the record may be shown anew while the user
// types.
void DetailView::fillEditor(QPlainTextEdit& editor, const QString& address) {
  const QString text = _drafts.value(_record.get(), address);
  if (editor.toPlainText() != text) {
    const QSignalBlocker silence(editor);
    editor.setPlainText(text);
  }
}

void DetailView::takeDraft(const QPlainTextEdit& editor) {
  if (_record != nullptr && &editor == this->editor()) {
    _drafts.insert(_record.get(), editor.toPlainText());
  }
}

void DetailView::restoreOriginal() {
  if (_record != nullptr && editor() != nullptr) {
    editor()->setPlainText(originalText(*_record));
    editor()->setFocus();
  }
}

QPlainTextEdit* DetailView::editor() const {
  const QWidget* page = _layout.vwContent->currentWidget();
  return page == _layout.vwError      ? _layout.tvErrorAddress
         : page == _layout.vwMultiple ? _layout.tvMultipleAddress
                                      : nullptr;
}

QWidget* DetailView::firstControl() const {
  const QWidget* page = _layout.vwContent->currentWidget();
  if (page == _layout.vwMultiple) {
    return _layout.tvMatches;
  }
  return page == _layout.vwError ? _layout.tvErrorAddress : nullptr;
}

int DetailView::selectedMatch() const {
  const QModelIndexList rows = _layout.tvMatches->selectionModel()->selectedRows();
  return rows.isEmpty() ? -1 : rows.first().row();
}

bool DetailView::isTwinsChecked() const {
  return !_layout.ckTwins->isHidden() && _layout.ckTwins->isChecked();
}

}  // namespace postwright
