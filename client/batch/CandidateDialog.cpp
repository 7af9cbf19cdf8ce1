#include "client/batch/CandidateDialog.h"

#include <postwright/LabelForm.h>
#include <postwright/RangeFit.h>

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtMath>
#include <algorithm>
#include <utility>

#include "client/LocalizedString.h"
#include "client/batch/review/BatchTexts.h"
#include "client/batch/worker/BatchRuns.h"
#include "client/suite/ModalRun.h"
#include "client/suite/StringHelpers.h"

namespace postwright {
namespace {

QString plain(const std::wstring& text) {
  return QString::fromStdWString(text);
}

// What is filled in a caption names no mnemonic of its own.
QString caption(const char* key, QStringList values) {
  return StringHelpers::stringWithFormat(
      localizedString(key), values.replaceInStrings(QStringLiteral("&"), QStringLiteral("&&")));
}

const char* numberKey(const AddressMatch& candidate) {
  return candidate.IsPOBox()                                  ? "SCandidateBox"
         : candidate.GetPrimaryType() == AddressRangeTypeEven ? "SCandidateNumberEven"
         : candidate.GetPrimaryType() == AddressRangeTypeOdd  ? "SCandidateNumberOdd"
                                                              : "SCandidateNumber";
}

const char* unitKey(const AddressMatch& candidate) {
  return candidate.GetSecondaryType() == AddressRangeTypeEven  ? "SCandidateUnitEven"
         : candidate.GetSecondaryType() == AddressRangeTypeOdd ? "SCandidateUnitOdd"
                                                               : "SCandidateUnit";
}

// Says why `value` is not in the range; empty where it is.
QString misfitOf(const QLineEdit* field, const std::wstring& low, const std::wstring& high,
                 AddressRangeType type) {
  if (field == nullptr) {
    return {};
  }
  const QString value = StringHelpers::trim(field->text());
  const RangeFit fit = FitOfRange(value.toStdWString(), low, high, type);
  const char* key = fit == RangeFitOutside         ? "SCandidateOutside"
                    : type == AddressRangeTypeEven ? "SCandidateNotEven"
                                                   : "SCandidateNotOdd";
  return fit == RangeFitInside ? QString()
                               : StringHelpers::stringWithFormat(localizedString(key),
                                                                 {value, plain(low), plain(high)});
}

// Why an answer is not the confirmation of the address; empty where it is.
QString doubtOf(const BatchResultRecord::Values& values) {
  if (values.status == AddressStatusError) {
    return values.result;
  }
  const QString lacks = unconfirmedText(values.confirmation);
  return lacks.isEmpty() && values.status == AddressStatusMultiple ? values.remark : lacks;
}

QPlainTextEdit* addressField(const QString& text) {
  constexpr int kWidth = 340;
  constexpr qsizetype kMostLines = 8;
  auto* field = new QPlainTextEdit(text);
  field->setObjectName(QStringLiteral("txtAddress"));
  field->setReadOnly(true);
  field->setTabChangesFocus(true);
  field->setFocusPolicy(Qt::ClickFocus);
  field->setAccessibleName(localizedString("SDesignatorAddressName"));
  field->setMinimumWidth(kWidth);
  const qsizetype lines = StringHelpers::lines(text).size();
  // A text edit keeps room for the cursor below its last line, and then offers to scroll there.
  const int border = 2 * (qCeil(field->document()->documentMargin()) + field->frameWidth() + 1);
  field->setFixedHeight(QFontMetrics(field->font()).lineSpacing() *
                            static_cast<int>(std::min(lines, kMostLines)) +
                        border);
  if (lines <= kMostLines) {
    field->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  }
  return field;
}

}  // namespace

CandidateDialog::CandidateDialog(const AddressMatch& candidate, QString typed, BatchRuns& runs,
                                 QWidget* parent)
    : QDialog(parent), _candidate(candidate), _typed(std::move(typed)), _runs(runs) {
  layOut();
  connect(&_runs, &BatchRuns::recordDone, this, &CandidateDialog::answered);
  for (QLineEdit* field : {_number, _unit}) {
    if (field != nullptr) {
      connect(field, &QLineEdit::textChanged, this, &CandidateDialog::typedOn);
    }
  }
  typedOn();
}

CandidateDialog::~CandidateDialog() {
  if (_asked != nullptr) {
    _asked->ignore();  // nobody waits for it any more
  }
}

void CandidateDialog::layOut() {
  constexpr int kMargin = 18;  // those of the designation dialog
  constexpr int kSpacing = 12;
  setWindowTitle(localizedString("SDesignatorTitle"));
  auto* window = new QVBoxLayout(this);
  window->setSizeConstraint(QLayout::SetFixedSize);
  window->setSpacing(kSpacing);
  window->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  auto* introduction = new QLabel(localizedString(
      _candidate.HasPrimaryRange() || _candidate.HasSecondaryRange() ? "SCandidateIntroduction"
                                                                     : "SCandidateWhole"));
  introduction->setWordWrap(true);
  window->addWidget(introduction);
  QPlainTextEdit* address =
      addressField(withNamesAsTyped(plain(_candidate.GetAddressTemplate(true)), _typed));
  auto* addressLabel = new QLabel(localizedString("SDesignatorAddress"));
  addressLabel->setBuddy(address);
  window->addWidget(addressLabel);
  window->addWidget(address);

  auto* form = new QFormLayout;
  window->addLayout(form);
  if (_candidate.HasPrimaryRange()) {
    _number = addField(*form, numberKey(_candidate), plain(_candidate.GetPrimaryLow()),
                       plain(_candidate.GetPrimaryHigh()));
    _number->setObjectName(QStringLiteral("txtNumber"));
  }
  if (_candidate.HasSecondaryRange() && !_candidate.IsPOBox()) {
    _unit = addField(*form, unitKey(_candidate), plain(_candidate.GetSecondaryLow()),
                     plain(_candidate.GetSecondaryHigh()));
    _unit->setObjectName(QStringLiteral("txtUnit"));
  }

  _told = new QLabel;
  _told->setObjectName(QStringLiteral("txtTold"));
  _told->setWordWrap(true);
  _told->setTextFormat(Qt::PlainText);
  window->addWidget(_told);

  auto* buttons = new QHBoxLayout;
  window->addLayout(buttons);
  _keep = new QPushButton(localizedString("SCandidateKeep"));
  _keep->setObjectName(QStringLiteral("btKeep"));
  auto* cancel = new QPushButton(localizedString("SDesignatorCancel"));
  cancel->setObjectName(QStringLiteral("btCancel"));
  _check = new QPushButton(localizedString("SCandidateCheck"));
  _check->setObjectName(QStringLiteral("btCheck"));
  _check->setDefault(true);
  for (QPushButton* button : {_keep, cancel, _check}) {
    button->setAutoDefault(button == _check);
  }
  buttons->addWidget(_keep);
  buttons->addStretch();
  buttons->addWidget(cancel);
  buttons->addWidget(_check);
  connect(_check, &QPushButton::clicked, this, &CandidateDialog::check);
  connect(_keep, &QPushButton::clicked, this, &CandidateDialog::keep);
  connect(cancel, &QPushButton::clicked, this, &CandidateDialog::reject);
}

QLineEdit* CandidateDialog::addField(QFormLayout& form, const char* key, const QString& low,
                                     const QString& high) {
  auto* field = new QLineEdit;
  auto* label = new QLabel(caption(key, {low, high}));
  label->setBuddy(field);
  // A screen reader says the range with the field.
  field->setAccessibleName(
      StringHelpers::stringWithFormat(localizedString(key), {low, high}).remove(u'&'));
  form.addRow(label, field);
  return field;
}

void CandidateDialog::setVisible(bool visible) {
  QDialog::setVisible(visible);
  if (visible && _number == nullptr && _unit == nullptr && _asked == nullptr) {
    ask();
  }
}

void CandidateDialog::reject() {
  abortModal(*this);
}

// What was told is of another number now.
void CandidateDialog::typedOn() {
  const bool isGiven = (_number == nullptr || !StringHelpers::trim(_number->text()).isEmpty()) &&
                       (_unit == nullptr || !StringHelpers::trim(_unit->text()).isEmpty());
  if (_asked != nullptr) {
    std::exchange(_asked, nullptr)->ignore();
  }
  _keeps = false;
  tell({}, false);
  _check->setEnabled(isGiven);
}

QString CandidateDialog::misfit() const {
  const QString ofNumber = misfitOf(_number, _candidate.GetPrimaryLow(),
                                    _candidate.GetPrimaryHigh(), _candidate.GetPrimaryType());
  return !ofNumber.isEmpty()
             ? ofNumber
             : misfitOf(_unit, _candidate.GetSecondaryLow(), _candidate.GetSecondaryHigh(),
                        _candidate.GetSecondaryType());
}

void CandidateDialog::check() {
  if (const QString why = misfit(); !why.isEmpty()) {
    tell(why, true);
  } else {
    ask();
  }
}

void CandidateDialog::ask() {
  _asked = std::make_shared<BatchResultRecord>(chosenText());
  tell(localizedString("SCandidateAsking"), false);
  _check->setEnabled(false);
  _runs.askAgain({_asked});
}

void CandidateDialog::answered(const BatchResultRecordPointer& record) {
  if (record != _asked) {
    return;
  }
  _asked = nullptr;
  _check->setEnabled(true);
  const BatchResultRecord::Values values = record->values();
  if (_keeps) {
    takeOwn(values);
    return;
  }
  const bool isChoice = values.status == AddressStatusMultiple && !values.candidates.isEmpty();
  const QString doubt = isChoice ? QString() : doubtOf(values);
  if (values.pending || !doubt.isEmpty()) {
    tell(StringHelpers::stringWithFormat(localizedString("SCandidateDoubt"), {doubt}), true);
    return;
  }
  _answer = values;
  if (!isChoice) {
    _answer.status = AddressStatusFixed;  // right as it was asked about is another than was typed
    _answer.fixed = values.standard;
  }
  stopModal(*this);
}

void CandidateDialog::keep() {
  _keeps = true;
  ask();
}

void CandidateDialog::takeOwn(const BatchResultRecord::Values& values) {
  _answer = values;
  _answer.own = values.confirmation.Kind() != ConfirmationFull;
  _answer.fixed = values.standard.isEmpty() ? values.address : values.standard;
  _answer.status = AddressStatusFixed;
  _answer.pending = false;
  stopModal(*this);
}

QString CandidateDialog::chosenText() const {
  const auto value = [](const QLineEdit* field) {
    return field == nullptr ? std::wstring()
                            : StringHelpers::trim(field->text()).toUpper().toStdWString();
  };
  return withNamesAsTyped(
      plain(_candidate.ComposeAddressForRechecking(value(_number), value(_unit))), _typed);
}

void CandidateDialog::tell(const QString& text, bool mayBeKept) {
  _told->setText(text);
  _told->setVisible(!text.isEmpty());
  _keep->setVisible(mayBeKept);
  for (QLineEdit* field : {_number, _unit}) {
    if (field != nullptr) {
      field->setAccessibleDescription(text);
    }
  }
}

}  // namespace postwright
