// The comparison of the product with the plain formulation, fact by fact.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace qvx::fuzz {

/// A fault of the product's; the line on standard error, without "ERROR: ".
struct Fault {
  std::string text;
};

[[noreturn]] inline void Differ(const char* fact, std::string_view plain,
                                std::string_view product) {
  std::fprintf(stderr, "plain: %s=[%.*s]\nproduct: %s=[%.*s]\n", fact,
               static_cast<int>(plain.size()), plain.data(), fact, static_cast<int>(product.size()),
               product.data());
  std::abort();
}

inline void Check(const char* fact, std::string_view plain, std::string_view product) {
  if (plain != product) Differ(fact, plain, product);
}

/// Numbers and truth values.
template <typename Number>
void CheckNumber(const char* fact, Number plain, Number product) {
  if (plain != product) Differ(fact, std::to_string(plain), std::to_string(product));
}

/// Runs the product's `action`; returns whether it came through. A fault has to be `expected`, and
/// an expected fault has to come.
template <typename Action>
bool CheckFault(const std::string& expected, Action&& action) {
  try {
    action();
  } catch (const Fault& fault) {
    Check("fault", expected, fault.text);
    return false;
  }
  Check("fault", expected, "");
  return true;
}

}  // namespace qvx::fuzz
