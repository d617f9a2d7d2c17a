// How every benchmark measures, checks and reports: pairs of runs, one of the product's and one of
// the least that could do the same, taken in turns; the median of their ratios counts.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace qvx::benchmark {

constexpr int kPairs = 7;

/// Ends the benchmark unless it measured what its row says.
inline void Require(bool holds, const std::string& otherwise) {
  if (holds) return;
  std::fprintf(stderr, "benchmark: %s\n", otherwise.c_str());
  std::exit(1);
}

template <typename Action>
double Seconds(Action&& action) {
  const auto start = std::chrono::steady_clock::now();
  action();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// Both actions return the seconds that count. One pair more goes ahead, to warm up.
inline double MedianRatio(const std::function<double()>& product,
                          const std::function<double()>& least) {
  std::vector<double> ratios;
  for (int i = 0; i <= kPairs; ++i) {
    const double ratio = product() / least();
    if (i > 0) ratios.push_back(ratio);
  }
  return Median(ratios);
}

/// `target`: the most that is allowed.
inline void Report(const char* name, double figure, double target) {
  std::printf("%-58s %8.2f %8.2f  %s\n", name, figure, target, figure <= target ? "met" : "MISSED");
  std::fflush(stdout);
}

inline void Report(const char* name, double figure) {
  std::printf("%-58s %8.2f\n", name, figure);
  std::fflush(stdout);
}

}  // namespace qvx::benchmark
