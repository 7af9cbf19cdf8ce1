#include "client/EngineTexts.h"

namespace postwright {

QString hostString(const std::wstring& text, IPlatformServices& services) {
  return QString::fromStdString(services.UCS2ToUTF8(text));
}

std::wstring coreString(const QString& text, IPlatformServices& services) {
  QString whole = text;
  return services.UTF8ToUCS2(whole.remove(QChar(u'\0')).toStdString());
}

QList<PostwrightSelectorPointer> selectorsForCandidates(const FixedAddress& fixed,
                                                        IPlatformServices& services) {
  QList<PostwrightSelectorPointer> selectors;
  if (!fixed.IsAddressMatchesValid()) {
    return selectors;
  }
  for (const AddressMatch& match : fixed.GetAddressMatches()) {
    selectors.append(PostwrightSelector::postwrightSelectorWithAddressPattern(
        hostString(match.GetAddressPattern(true), services),
        hostString(match.GetAddressTemplate(true), services),
        hostString(match.GetSecondaryLow(), services),
        hostString(match.GetSecondaryHigh(), services)));
  }
  return selectors;
}

}  // namespace postwright
