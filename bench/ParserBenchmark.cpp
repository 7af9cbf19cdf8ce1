// Parsing against the plain form, and against one pass of the street pattern by a pattern engine
// that compiles to machine code, each over the same texts. Every text's answer is compared first,
// so that a wrong answer cannot win.

#include "bench/RatioReporter.h"
#include "core/parser/AddressGrammar.h"
#include "core/parser/Vocabulary.h"
#include "tests/core/parser/LabelGenerator.h"
#include "tests/core/parser/PlainParser.h"

#include <postwright/AddressParser.h>

#define PCRE2_CODE_UNIT_WIDTH 32
#include <pcre2.h>

#include <cstdlib>
#include <iostream>
#include <locale>

namespace postwright {

namespace {

using Texts = std::vector<std::wstring>;

const Texts kOrdinary = {
    L"JOHN SMITH\n12 N MAIN ST APT 4\nSPRINGFIELD IL 62701",
    L"Jane Doe\nAcme Inc.\n1600 Pennsylvania Ave NW\nWashington, DC 20500",
    L"City Library\n901 Market Street, Suite 200\nSan Francisco, CA 94103-1701",
    L"Maria Garcia\n350 5th Avenue Floor 34\nNew York, NY 10118",
    L"The Harbor Cafe\n77 Massachusetts Avenue\nCambridge, Massachusetts 02139\nRing twice",
    L"O. Larsen\n4521 Highway 61 N\nMemphis TN 38109",
    L"Post Office\n123 1/2 Elm Ct\nMadison, WI 53703",
    L"Dr. A. Nguyen\n500 NE 8th St # 12\nBellevue, WA 98004",
};
const Texts kBoxes = {L"Jane Doe\nP.O. Box 12\nSpringfield IL 62701",
                      L"Acme Inc.\nPO Box 7701\nAustin, Texas 78767-0001"};
const Texts kNoAddress = {
    L"Milk, eggs, two dozen oranges, 1 lb of butter and the 3 jars of jam from last week",
    L"Tel 217-555-0142\nFax 217-555-0143\nOpen 9 to 5, closed on Sundays and on 12 holidays",
    L"SERIAL 8841-22-017 MODEL 12B\nBUILT 2019, CHECKED 2024, NEXT CHECK 2026\nDO NOT OPEN",
    L"Dear Ms. Smith, thank you for your letter of May 12. We will ship 5 boxes on Monday."};

Texts Mixtures() {
  LabelGenerator generator(1);
  Texts texts;
  for (int i = 0; i < 300; ++i) {
    texts.push_back(generator.Mixture());
  }
  return texts;
}

void CompareAnswers(const Texts& texts) {
  for (const std::wstring& text : texts) {
    if (AddressParser::GetInstance()->Parse(text) != ParsePlainly(text)) {
      std::cerr << "the parser and the plain searches give different answers\n";
      std::exit(1);
    }
  }
}

// One search with the street pattern, compiled to machine code, and nothing else.
class CompiledSearch {
 public:
  CompiledSearch() {
    std::map<std::wstring, std::wstring> suffixes;
    for (const auto& row : Vocabulary::Suffixes()) {
      for (const wchar_t* written : row.written) {
        suffixes.emplace(written, row.standard);
      }
    }
    const auto table = [](const std::vector<Vocabulary::VocabularyRow>& rows) {
      std::map<std::wstring, std::wstring> words;
      for (const auto& row : rows) {
        words.emplace(row.written, row.standard);
      }
      return words;
    };
    const AddressGrammar grammar(table(Vocabulary::Directions()), suffixes,
                                 table(Vocabulary::States()), table(Vocabulary::NumberedUnits()),
                                 table(Vocabulary::PlainUnits()));
    int error = 0;
    PCRE2_SIZE where = 0;
    code_ = pcre2_compile(Units(grammar.address), grammar.address.size(),
                          PCRE2_EXTENDED | PCRE2_DOTALL | PCRE2_UTF | PCRE2_UCP, &error, &where,
                          nullptr);
    if (code_ == nullptr || pcre2_jit_compile(code_, PCRE2_JIT_COMPLETE) != 0) {
      std::cerr << "the street pattern does not compile, error " << error << " at " << where
                << '\n';
      std::exit(1);
    }
    match_ = pcre2_match_data_create_from_pattern(code_, nullptr);
  }
  CompiledSearch(const CompiledSearch&) = delete;
  CompiledSearch& operator=(const CompiledSearch&) = delete;
  ~CompiledSearch() {
    pcre2_match_data_free(match_);
    pcre2_code_free(code_);
  }

  int Search(const std::wstring& text) const {
    return pcre2_match(code_, Units(text), text.size(), 0, 0, match_, nullptr);
  }

 private:
  static PCRE2_SPTR Units(const std::wstring& text) {
    return reinterpret_cast<PCRE2_SPTR>(text.data());
  }

  pcre2_code* code_ = nullptr;
  pcre2_match_data* match_ = nullptr;
};

template <typename Work>
void Measure(const std::string& name, const Texts& texts, Work work) {
  benchmark::RegisterBenchmark(name.c_str(), [&texts, work](benchmark::State& state) {
    for (auto _ : state) {
      for (const std::wstring& text : texts) {
        benchmark::DoNotOptimize(work(text));
      }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(texts.size()));
  });
}

int Run(int argc, char** argv) {
  std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  benchmark::Initialize(&argc, argv);
  AddressParser* parser = AddressParser::GetInstance();
  const CompiledSearch compiled;
  const Texts mixtures = Mixtures();
  const std::pair<std::string, const Texts*> sets[] = {{"ordinary", &kOrdinary},
                                                       {"box", &kBoxes},
                                                       {"mixture", &mixtures},
                                                       {"no address", &kNoAddress}};
  RatioReporter reporter;
  for (const auto& [name, texts] : sets) {
    CompareAnswers(*texts);
    Measure(name + ", parser", *texts, [parser](const auto& text) { return parser->Parse(text); });
    Measure(name + ", plain", *texts, [](const auto& text) { return ParsePlainly(text); });
    Measure(name + ", compiled search", *texts,
            [&compiled](const auto& text) { return compiled.Search(text); });
    reporter.AddRatio(name + ": plain / parser", name + ", plain", name + ", parser");
    reporter.AddRatio(name + ": compiled street search / parser", name + ", compiled search",
                      name + ", parser");
  }
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}

}  // namespace
}  // namespace postwright

int main(int argc, char** argv) {
  return postwright::Run(argc, argv);
}
