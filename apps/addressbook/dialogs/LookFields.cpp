#include "apps/addressbook/dialogs/LookFields.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>

namespace postwright::addressbook {

namespace {

struct LookFields {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::LookFields)
};

}  // namespace

QComboBox* makeCaseBox(TextCase textCase, QWidget* parent) {
  auto* const box = new QComboBox(parent);
  box->setObjectName(QStringLiteral("case"));
  box->addItems({LookFields::tr("UPPER CASE, as the Postal Service prefers"),
                 LookFields::tr("lower case"), LookFields::tr("Mixed Case")});
  box->setCurrentIndex(static_cast<int>(textCase));
  return box;
}

QCheckBox* makePunctuationBox(bool removesPunctuation, QWidget* parent) {
  auto* const box = new QCheckBox(LookFields::tr("Remove &punctuation"), parent);
  box->setObjectName(QStringLiteral("punctuation"));
  box->setChecked(removesPunctuation);
  return box;
}

}  // namespace postwright::addressbook
