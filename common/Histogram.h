#ifndef POSTWRIGHT_COMMON_HISTOGRAM_H_
#define POSTWRIGHT_COMMON_HISTOGRAM_H_

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace postwright {

// Counts values by their size, for a page of figures. Any thread may call any operation.
//
//   Histogram seconds({0.1, 1, 10});
//   seconds.Note(0.5);
//   seconds.Count(1);   // 1: values above 0.1 and up to 1
class Histogram {
 public:
  // `bounds`, ascending, are the largest value of each count; the last count has no bound.
  explicit Histogram(std::vector<double> bounds)
      : bounds_(std::move(bounds)), counts_(bounds_.size() + 1) {}

  void Note(double value) {
    const auto bound = std::lower_bound(bounds_.begin(), bounds_.end(), value);
    counts_[static_cast<size_t>(bound - bounds_.begin())] += 1;
    sum_ += value;
  }

  const std::vector<double>& Bounds() const { return bounds_; }

  // Returns how many values belong to the bound of that index; Bounds().size() is the last one's.
  uint64_t Count(size_t index) const { return counts_[index]; }

  // Returns all values added up.
  double Sum() const { return sum_; }

 private:
  const std::vector<double> bounds_;
  std::vector<std::atomic<uint64_t>> counts_;
  std::atomic<double> sum_ = 0;
};

}  // namespace postwright

#endif  // POSTWRIGHT_COMMON_HISTOGRAM_H_
