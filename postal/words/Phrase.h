#ifndef POSTWRIGHT_POSTAL_WORDS_PHRASE_H_
#define POSTWRIGHT_POSTAL_WORDS_PHRASE_H_

#include <cstddef>
#include <span>
#include <string_view>

#include "common/AsciiText.h"

namespace postwright::postal {

// Returns how many of the words from `at` on make up `phrase` ("POST OFFICE BOX"); 0 where they do
// not.
size_t PhraseLength(const Words& words, size_t at, std::string_view phrase);

// Returns the number of words of the longest of the phrases that stands at `at`; 0 for none.
size_t LongestPhrase(const Words& words, size_t at, std::span<const std::string_view> phrases);

// Says whether a word only announces a number.
bool IsNumberSign(std::string_view word);

// Returns how many words from `at` on only announce a number: #, NO, NUMBER.
size_t NumberSignLength(const Words& words, size_t at);

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_WORDS_PHRASE_H_
