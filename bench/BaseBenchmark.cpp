// How long the local service takes over one address with an address base, as a ratio to the time
// without one. No HTTP, no documents.
//
//   bench-base BASE ZIPS
//
// BASE is made from one city by make-addresses and postwright-base; ZIPS is data/us-zips.tsv.

#include <cstdlib>
#include <iostream>
#include <utility>

#include "bench/RatioReporter.h"
#include "postal/store/Sqlite.h"
#include "service/Verifier.h"

namespace postwright::service {
namespace {

using Questions = std::vector<RequestAddress>;

// Addresses of the base, each on another street. `spoil` says what is done to them.
template <typename Spoil>
Questions MakeQuestions(const std::string& base, const Spoil& spoil) {
  const postal::FileImage image(base, postal::FileImage::Kind::Mapped);
  postal::SqliteFile file = postal::SqliteFile::OpenImage(image.Bytes(), base);
  postal::SqliteStatement rows(
      file,
      "SELECT number,name,suffix,zip FROM street JOIN point ON point.street=street.id WHERE "
      "street.id%41=7 AND unit='' AND predirectional='' GROUP BY street.id LIMIT 2000");
  Questions questions;
  while (rows.Step()) {
    RequestAddress asked;
    asked.address2 = spoil(rows.Text(0), rows.Text(1), rows.Text(2));
    asked.city = "Austin";
    asked.state = "TX";
    asked.zip5 = rows.Text(3);
    questions.push_back(asked);
  }
  return questions;
}

void Measure(const std::string& name, const Verifier& verifier, const Questions& questions) {
  benchmark::RegisterBenchmark(name.c_str(), [&verifier, &questions](benchmark::State& state) {
    size_t at = 0;
    for (auto _ : state) {
      benchmark::DoNotOptimize(verifier.Verify(questions[at]));
      at = (at + 1) % questions.size();
    }
  });
}

int Run(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (argc != 3) {
    std::cerr << "usage: bench-base BASE ZIPS [--benchmark_...]\n";
    return EXIT_FAILURE;
  }
  postal::ZipList zips;
  zips.Load(argv[2]);
  const postal::JoinedBases addresses({argv[1]}, postal::AddressBase::kMostInMemory);
  const Verifier without(zips);
  const Verifier with(zips, &addresses);
  const Questions asItIs = MakeQuestions(
      argv[1], [](const std::string& number, const std::string& name, const std::string& suffix) {
        return number + " " + name + " " + suffix;
      });
  const Questions noSuffix =
      MakeQuestions(argv[1], [](const std::string& number, const std::string& name,
                                const std::string&) { return number + " " + name; });
  const Questions misspelt = MakeQuestions(
      argv[1], [](const std::string& number, std::string name, const std::string& suffix) {
        std::swap(name[1], name[2]);
        return number + " " + name + " " + suffix;
      });
  const Questions unknown = MakeQuestions(
      argv[1], [](const std::string&, const std::string& name, const std::string& suffix) {
        return "99999 " + name + " " + suffix;
      });
  Measure("no base", without, asItIs);
  RatioReporter reporter;
  const std::pair<const char*, const Questions*> kinds[] = {{"as it is", &asItIs},
                                                            {"suffix missing", &noSuffix},
                                                            {"misspelt", &misspelt},
                                                            {"unknown number", &unknown}};
  for (const auto& [name, questions] : kinds) {
    Measure(name, with, *questions);
    reporter.AddRatio(std::string(name) + " / no base", name, "no base");
  }
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace postwright::service

int main(int argc, char** argv) {
  return postwright::service::Run(argc, argv);
}
