#include "tests/fuzz/facts.h"

#include <cstdio>
#include <cstdlib>

namespace qvx::fuzz {
namespace {

void Show(const char* whose, const Facts& facts, const Facts& others) {
  for (const auto& [name, value] : facts) {
    const auto other = others.find(name);
    if (other != others.end() && other->second == value) continue;
    std::fprintf(stderr, "%s: %s=[%s]\n", whose, name.c_str(), value.c_str());
  }
}

}  // namespace

void ExpectSame(const Facts& plain, const Facts& product) {
  if (plain == product) return;
  Show("plain", plain, product);
  Show("product", product, plain);
  std::abort();
}

}  // namespace qvx::fuzz
