// A dictionary of spellings and a text, "---" on a line between them. The dictionary's pairs
// written again read the same; put into mixed case, a text keeps its letters but for the spellings,
// its lines and its blanks.

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

// The rarer line breaks of word processors become line feeds.
bool HasRareBreaks(const QString& text) {
  return std::any_of(text.begin(), text.end(),
                     [](QChar c) { return QStringView(u"\r\v\f\u0085\u2028\u2029").contains(c); });
}

QString BlanksOf(const QString& text) {
  QString blanks;
  for (const QChar c : text) {
    blanks += c == QLatin1Char(' ') || c == QLatin1Char('\n') ? c : QChar();
  }
  return blanks.remove(QChar());
}

void CheckText(const QString& text, const std::optional<QString>& spellings) {
  PostwrightClient client;
  client.setCapitalization(CapitalizationMixed);
  client.setRemovePunctuation(false);
  client.setMixedCase(spellings);
  const QString mixed = labelInCase(text, client);
  if (!spellings && !HasRareBreaks(text)) {
    Require(BlanksOf(mixed) == BlanksOf(text), "blanks and lines stay");
  }
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
