#include "postal/base/StreetName.h"

#include <algorithm>
#include <utility>

namespace postwright::postal {
namespace {

constexpr std::pair<std::string_view, std::string_view> kAlike[] = {
    {"FIRST", "1ST"}, {"SECOND", "2ND"}, {"THIRD", "3RD"},     {"FOURTH", "4TH"},
    {"FIFTH", "5TH"}, {"SIXTH", "6TH"},  {"SEVENTH", "7TH"},   {"EIGHTH", "8TH"},
    {"NINTH", "9TH"}, {"TENTH", "10TH"}, {"ELEVENTH", "11TH"}, {"TWELFTH", "12TH"},
    {"SAINT", "ST"},  {"MOUNT", "MT"},   {"FORT", "FT"},
};

}  // namespace

StreetName StreetNameOf(const StreetLine& line, std::string_view urbanization) {
  return {line.predirectional, JoinWords(line.name), line.suffix, line.postdirectional,
          std::string(urbanization)};
}

std::string ComposeStreet(const StreetName& street) {
  Words words;
  for (const std::string* element :
       {&street.predirectional, &street.name, &street.suffix, &street.postdirectional}) {
    if (!element->empty()) {
      words.push_back(*element);
    }
  }
  return JoinWords(words);
}

std::string StreetKey(std::string_view name) {
  std::string key;
  for (const std::string& word : SplitLine(name)) {
    const auto alike = std::find_if(std::begin(kAlike), std::end(kAlike),
                                    [&](const auto& row) { return row.first == word; });
    key += alike == std::end(kAlike) ? std::string_view(word) : alike->second;
  }
  return key;
}

}  // namespace postwright::postal
