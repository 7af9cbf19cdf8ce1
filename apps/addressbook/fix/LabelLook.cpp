#include "apps/addressbook/fix/LabelLook.h"

#include <postwright/LabelForm.h>

#include <algorithm>
#include <memory>

#include "apps/tables/Country.h"

namespace postwright::addressbook {

namespace {

// Where the address begins: after the names, which have no digit.
qsizetype addressBegin(const QString& label) {
  const auto digit = std::find_if(label.begin(), label.end(), [](QChar c) { return c.isDigit(); });
  return label.lastIndexOf(QLatin1Char('\n'), digit - label.begin()) + 1;
}

}  // namespace

std::function<QString(const QString&)> labelLook(const LabelLook& look, const QString& spellings) {
  const auto client = std::make_shared<PostwrightClient>();
  client->setRemovePunctuation(false);
  client->setCapitalization(static_cast<qint32>(look.textCase));
  client->setMixedCase(spellings);
  return [look, client](const QString& label) {
    if (tables::isForeignLabel(label)) {
      return label;
    }
    const qsizetype begin = addressBegin(label);
    return labelInCase(label.left(begin), *client) +
           labelInCase(addressInForm(label.mid(begin),
                                     static_cast<PunctuationForm>(look.punctuation), *client),
                       *client);
  };
}

}  // namespace postwright::addressbook
