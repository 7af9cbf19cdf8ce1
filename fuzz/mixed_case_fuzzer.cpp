// A dictionary of spellings and a text, with "---" on a line between them. The dictionary's pairs
// written again read the same; put into mixed case, a text keeps its letters (apart from the
// spellings), lines and spaces.

#include <QString>
#include <algorithm>

#include "client/LabelForm.h"
#include "client/MixedCaseDictionary.h"
#include "fuzz/InputText.h"
#include "fuzz/Require.h"

namespace {

using namespace postwright;
using fuzz::Require;

void CheckDictionary(const QString& text) {
  const MixedCaseDictionary spellings = parseDefaultSpellings(text);
  QString again;
  for (auto pair = spellings.begin(); pair != spellings.end(); ++pair) {
    again += pair.key() + QLatin1Char('|') + pair.value() + QStringLiteral("|\n");
  }
  Require(parseDefaultSpellings(again) == spellings, "spellings written again read the same");
}

QString BlanksOf(const QString& text) {
  QString blanks;
  for (const QChar c : text) {
    if (c.isSpace()) {
      blanks += c;
    }
  }
  return blanks;
}

void CheckText(const QString& text, const std::optional<QString>& spellings) {
  static PostwrightClient client;  // making one reads the built-in dictionary
  client.setCapitalization(CapitalizationMixed);
  client.setRemovePunctuation(false);
  client.setMixedCase(spellings);
  const QString mixed = labelInCase(text, client);
  Require(spellings || BlanksOf(mixed) == BlanksOf(text), "blanks and lines stay");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::vector<std::string> parts = fuzz::PartsOf(DecodeText(fuzz::TextOf(data, size)), 2);
  const QString spellings = QString::fromStdString(parts[0]);
  const QString text = QString::fromStdString(parts[1]);
  CheckDictionary(spellings);
  CheckText(text, spellings);
  CheckText(text, std::nullopt);
  return 0;
}
