#ifndef POSTWRIGHT_TESTS_CORE_PARSER_LABELGENERATOR_H_
#define POSTWRIGHT_TESTS_CORE_PARSER_LABELGENERATOR_H_

#include <random>
#include <string>

namespace postwright {

// Makes texts that put the address patterns into as many situations as possible; the same seed
// gives the same texts. None is so long or so full of spaces that a plain search would take
// seconds.
class LabelGenerator {
 public:
  explicit LabelGenerator(unsigned seed) : random_(seed) {}

  std::wstring Address();  // the elements of an address in order, some missing, some odd
  std::wstring Mixture();  // elements of addresses and odd words in any order
  std::wstring Noise();    // single characters, often with a state and a ZIP code after them

 private:
  size_t Below(size_t limit) { return random_() % limit; }
  bool OneIn(size_t count) { return Below(count) == 0; }
  template <size_t N>
  std::wstring Any(const wchar_t* const (&texts)[N]) {
    return texts[Below(N)];
  }
  std::wstring Word();
  std::wstring Separator();

  std::mt19937 random_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_CORE_PARSER_LABELGENERATOR_H_
