#include "apps/addressbook/fix/LabelSample.h"

#include <postwright/LabelForm.h>

namespace postwright::addressbook {

// Each choice shows: a name with signs, a hyphen that belongs to a number, a comma.
QString labelSample(const FixSettings& settings) {
  const QString name = QStringLiteral("Maria O'Neil & Sons, Inc.");
  const QString address = QStringLiteral("112-10 NW MAIN ST # 4\nSAINT LOUIS, MO 63101-1234");
  PostwrightClient client;
  client.setRemovePunctuation(false);
  client.setCapitalization(static_cast<qint32>(settings.textCase));
  client.setMixedCase(settings.spellings);
  const QString label = name + u'\n' +
                        addressInForm(client.fixCase(address),
                                      static_cast<PunctuationForm>(settings.punctuation), client);
  return settings.names == Names::SameCase ? labelInCase(label, client) : label;
}

}  // namespace postwright::addressbook
