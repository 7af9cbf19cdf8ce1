#ifndef POSTWRIGHT_CLIENT_MIXEDCASEDICTIONARY_H_
#define POSTWRIGHT_CLIENT_MIXEDCASEDICTIONARY_H_

#include <QHash>
#include <QString>
#include <optional>

namespace postwright {

// Spellings of words that the capitalized form gets wrong, by that form: "Mcdonald" to "McDonald".
using MixedCaseDictionary = QHash<QString, QString>;

// Returns the form in which a word is looked up: capitalized, and with a second capital after a
// leading "O'" where nothing but letters follows, at least two of them ("O'NEIL" gives "O'Neil").
QString mixedCaseKey(const QString& word);

// Reads a dictionary resource: fields separated by "|", in pairs of key and spelling, each trimmed.
// A line break separates nothing, it is trimmed away, so every line of a file with a pair a line
// ends in "|". An unpaired last field is dropped; of two pairs with one key the later counts. Keys
// are taken as they are: one that mixedCaseKey() never gives is never found.
MixedCaseDictionary parseDefaultSpellings(const QString& resource);

// Reads the user's spellings, separated by ";" and trimmed, each under its own capitalized form; of
// two spellings of one word the later counts. Nil gives an empty dictionary, an empty element (the
// empty string is one) an empty spelling for the empty word, which no text holds.
MixedCaseDictionary parseUserSpellings(const std::optional<QString>& spellings);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_MIXEDCASEDICTIONARY_H_
