#ifndef POSTWRIGHT_BENCH_FIXLOOP_H_
#define POSTWRIGHT_BENCH_FIXLOOP_H_

#include <benchmark/benchmark.h>
#include <postwright/MacPlatformServices.h>
#include <postwright/Postwright.h>

namespace postwright {

// Fixes `label` again and again, as a host that keeps its services does.
inline void FixAgainAndAgain(benchmark::State& state, const wchar_t* label) {
  MacPlatformServices services;
  for (auto _ : state) {
    if (Postwright::Fix(label, true, &services)->GetExactAddress().empty()) {
      state.SkipWithError("the label was not corrected");
      break;
    }
  }
}

}  // namespace postwright

#endif  // POSTWRIGHT_BENCH_FIXLOOP_H_
