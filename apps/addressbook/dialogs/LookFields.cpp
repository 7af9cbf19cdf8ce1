#include "apps/addressbook/dialogs/LookFields.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>

#include "apps/addressbook/fix/LabelSample.h"

namespace postwright::addressbook {

LookFields::LookFields(const FixSettings& settings, QWidget* parent)
    : QWidget(parent), _settings(settings), _label(new QLabel(this)) {
  auto* const form = new QFormLayout(this);
  form->setContentsMargins(0, 0, 0, 0);
  _case =
      addBox(*form, "case", tr("&Letters:"),
             {tr("UPPER CASE, as the Postal Service prefers"), tr("lower case"), tr("Mixed Case")},
             static_cast<int>(settings.textCase));
  _punctuation =
      addBox(*form, "punctuation", tr("&Punctuation:"),
             {tr("Keep all of it"), tr("As the Postal Service prefers"), tr("Remove all of it")},
             static_cast<int>(settings.punctuation));
  _names = addBox(*form, "names", tr("&Names and notes:"),
                  {tr("As they were typed"), tr("The same letters as the address")},
                  static_cast<int>(settings.names));
  _label->setObjectName(QStringLiteral("sample"));
  _label->setTextFormat(Qt::PlainText);
  _label->setFrameShape(QFrame::StyledPanel);
  _label->setBackgroundRole(QPalette::Base);
  _label->setForegroundRole(QPalette::Text);
  _label->setAutoFillBackground(true);
  constexpr int kMargin = 8;
  _label->setMargin(kMargin);
  form->addRow(tr("A label then reads:"), _label);
  showLabel();
}

QComboBox* LookFields::addBox(QFormLayout& form, const char* name, const QString& caption,
                              const QStringList& choices, int chosen) {
  auto* const box = new QComboBox(this);
  box->setObjectName(QLatin1String(name));
  box->addItems(choices);
  box->setCurrentIndex(chosen);
  form.addRow(caption, box);
  connect(box, &QComboBox::currentIndexChanged, this, &LookFields::showLabel);
  return box;
}

FixSettings LookFields::settings() const {
  FixSettings settings = _settings;
  settings.textCase = static_cast<TextCase>(_case->currentIndex());
  settings.punctuation = static_cast<Punctuation>(_punctuation->currentIndex());
  settings.names = static_cast<Names>(_names->currentIndex());
  return settings;
}

void LookFields::setSpellings(const QString& spellings) {
  _settings.spellings = spellings;
  showLabel();
}

void LookFields::showLabel() {
  _label->setText(labelSample(settings()));
}

}  // namespace postwright::addressbook
