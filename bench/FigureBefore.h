#ifndef POSTWRIGHT_BENCH_FIGUREBEFORE_H_
#define POSTWRIGHT_BENCH_FIGUREBEFORE_H_

#include <string>

namespace postwright {

// What the last version's results have for the ratio that `text` stands in front of, as in
// "(0.2.0: 50.9)"; empty if they have none. Runs bench/figure-before.sh.
std::string FigureBefore(const std::string& text);

}  // namespace postwright

#endif  // POSTWRIGHT_BENCH_FIGUREBEFORE_H_
