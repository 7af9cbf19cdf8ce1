#ifndef POSTWRIGHT_CORE_REVIEW_READLABEL_H_
#define POSTWRIGHT_CORE_REVIEW_READLABEL_H_

#include <string_view>
#include <vector>

#include "core/review/LabelWords.h"
#include "core/review/LineRoles.h"

namespace postwright {

// One of the two texts, read.
struct ReadLabel {
  explicit ReadLabel(std::wstring_view text)
      : words(ReadLabelWords(text)), roles(FindRoles(words)) {}

  std::vector<LabelWord> words;
  std::vector<Role> roles;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_REVIEW_READLABEL_H_
