#include <postwright/AddressBookDesignatorController.h>

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtMath>
#include <algorithm>
#include <utility>

#include "client/suite/ModalRun.h"
#include "client/suite/StringHelpers.h"
#include "client/suite/TextMetric.h"
#include "ui_AddressBookDesignator.h"

namespace postwright {
namespace {

// Fills the two placeholders of a caption. What is filled in names no mnemonic of its own.
void FillCaption(QLabel& caption, const QString& low, const QString& high) {
  const auto plain = [](QString text) { return text.replace(u'&', QStringLiteral("&&")); };
  caption.setText(StringHelpers::stringWithFormat(caption.text(), {plain(low), plain(high)}));
}

// Shows `text` whole up to eight lines, and the rest by scrolling: the window stays on the screen
// however much the user has written above the address.
void ShowText(QPlainTextEdit& field, const QString& text) {
  constexpr int kMostLines = 8;
  const double line = TextMetric::sizeForString({}, field.font()).height();
  const double whole = TextMetric::sizeForString(text, field.font()).height();
  // A text edit keeps room for the cursor below its last line.
  const double border = 2 * (field.document()->documentMargin() + field.frameWidth() + 1);
  field.setPlainText(text);
  field.setFixedHeight(qCeil(std::min(whole, kMostLines * line) + border));
}

}  // namespace

AddressBookDesignatorController::AddressBookDesignatorController(PostwrightSelectorPointer selector,
                                                                 QWidget* parent)
    : QDialog(parent),
      _addressSelector(std::move(selector)),
      _layout(std::make_unique<Ui::AddressBookDesignator>()) {
  _layout->setupUi(this);
  windowDidLoad();
}

AddressBookDesignatorController::~AddressBookDesignatorController() = default;

void AddressBookDesignatorController::windowDidLoad() {
  loadFromData();
  for (QLineEdit* field : {_layout->txtNumber, _layout->txtCharacter}) {
    connect(field, &QLineEdit::textChanged, this,
            &AddressBookDesignatorController::controlTextDidChange);
  }
  connect(_layout->btOK, &QPushButton::clicked, this, &AddressBookDesignatorController::bnOKClick);
  connect(_layout->btCancel, &QPushButton::clicked, this,
          &AddressBookDesignatorController::bnCancelClick);
  _layout->btOK->setEnabled(false);
}

void AddressBookDesignatorController::loadFromData() {
  ShowText(*_layout->txtAddress, _addressSelector->addressTemplate());
  FillCaption(*_layout->txtRange, _addressSelector->lowCharacter(),
              _addressSelector->highCharacter());

  const std::optional<QString> numbers = _addressSelector->houseNumberRange();
  if (numbers) {
    FillCaption(*_layout->txtNumberRange, numbers->section(QStringLiteral(" - "), 0, 0),
                numbers->section(QStringLiteral(" - "), 1));
  }
  _layout->loFields->setRowVisible(_layout->txtNumber, numbers.has_value());
}

// The selector takes what was typed when the user agrees to it, and not before.
void AddressBookDesignatorController::saveToData() {}

void AddressBookDesignatorController::controlTextDidChange() {
  const bool numberGiven = _layout->txtNumber->isHidden() || !_layout->txtNumber->text().isEmpty();
  _layout->btOK->setEnabled(numberGiven && !_layout->txtCharacter->text().isEmpty());
}

void AddressBookDesignatorController::bnOKClick() {
  _addressSelector->setHouseNumber(_layout->txtNumber->text());
  _addressSelector->fixAddressWithCharacter(_layout->txtCharacter->text());
  stopModal(*this);
}

void AddressBookDesignatorController::bnCancelClick() {
  abortModal(*this);
}

}  // namespace postwright
