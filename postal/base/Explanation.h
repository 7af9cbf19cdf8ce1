#ifndef POSTWRIGHT_POSTAL_BASE_EXPLANATION_H_
#define POSTWRIGHT_POSTAL_BASE_EXPLANATION_H_

#include <concepts>
#include <string>
#include <vector>

namespace postwright::postal {

// The steps of a decision in words, for people who want to know why.
using Explanation = std::vector<std::string>;

// Adds a step, joined from `parts`: texts, and functions that return them. Does nothing, and calls
// no function, where no explanation is wanted.
template <typename... Parts>
void Explain(Explanation* explanation, const Parts&... parts) {
  if (explanation != nullptr) {
    std::string step;
    const auto append = [&step](const auto& part) {
      if constexpr (std::invocable<decltype(part)>) {
        step += part();
      } else {
        step += part;
      }
    };
    (append(parts), ...);
    explanation->push_back(std::move(step));
  }
}

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_EXPLANATION_H_
