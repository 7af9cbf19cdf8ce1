#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_LOOKFIELDS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_LOOKFIELDS_H_

#include "apps/addressbook/fix/AddressFixer.h"

class QCheckBox;
class QComboBox;
class QWidget;

namespace postwright::addressbook {

// The fields for how corrected labels look, which two dialogs have.

// The index of the box is a TextCase.
QComboBox* makeCaseBox(TextCase textCase, QWidget* parent);
QCheckBox* makePunctuationBox(bool removesPunctuation, QWidget* parent);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_LOOKFIELDS_H_
