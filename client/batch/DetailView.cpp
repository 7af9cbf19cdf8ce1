#include "client/batch/DetailView.h"

#include <postwright/BatchOptions.h>

#include <QApplication>

#include "client/LocalizedString.h"
#include "client/batch/AddressDelegate.h"
#include "client/batch/RowHeights.h"
#include "ui_Postwright.h"

namespace postwright {

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

void DetailView::showRecord(const BatchResultRecordPointer& record) {
  _record = nullptr;  // what is put into the fields now is not a draft
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
      showMultiple(values);
      showPage(_layout.vwMultiple);
      break;
    case AddressStatusError:
      showError(values);
      showPage(_layout.vwError);
      break;
  }
}

void DetailView::showEditor() {
  if (_editsAny && _record != nullptr && editor() == nullptr) {
    _edited = _record.get();
    showRecord(BatchResultRecordPointer(_record));
  }
}

void DetailView::leaveEditor() {
  if (_record != nullptr && _edited == _record.get() && !hasDraft(*_record)) {
    _edited = nullptr;
    showRecord(BatchResultRecordPointer(_record));
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

// Text that is back as it was is not a draft.
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
    fillEditor(*editor(), _record->typed());
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
  const QCheckBox* box = page == _layout.vwError  ? _layout.ckErrorTwins
                         : page == _layout.vwEdit ? _layout.ckEditTwins
                                                  : _layout.ckTwins;
  return !box->isHidden() && box->isChecked();
}

}  // namespace postwright
