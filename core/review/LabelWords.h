#ifndef POSTWRIGHT_CORE_REVIEW_LABELWORDS_H_
#define POSTWRIGHT_CORE_REVIEW_LABELWORDS_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace postwright {

// A word or number of a label's text, in the form in which the two texts of a review are compared.
struct LabelWord {
  // Composed, without case, A to Z in upper case. A hyphen, stroke or point within a number is part
  // of it ("112-10", "1/2", "39.2"); an apostrophe within a word is not. A ZIP code and its add-on
  // are two words, however they are joined.
  std::wstring text;

  std::size_t line = 0;
  std::size_t begin = 0;  // in the label's text
  std::size_t end = 0;
  bool isGlued = false;          // there are only signs between it and the word before
  bool afterNumberSign = false;  // "#" comes before it
  bool afterComma = false;       // a comma, a semicolon or another such sign does
};

// Takes a text apart, in time proportional to its length. What is not a letter, digit or symbol
// parts words and belongs to none. The ranges of the words are in order and do not overlap.
std::vector<LabelWord> ReadLabelWords(std::wstring_view text);

// Returns the text composed (Unicode's form NFC); as it is where it holds what is not a code point.
std::wstring ComposedWord(std::wstring_view word);

// Returns the word without the signs within numbers, and without the accents of its letters.
std::wstring WithoutSigns(std::wstring_view word);
std::wstring WithoutAccents(std::wstring_view word);

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_LABELWORDS_H_
