// What a reading found out, as text by name: the form in which the product's results and the plain
// formulation's are compared.
#pragma once

#include <map>
#include <string>

namespace qvx::fuzz {

using Facts = std::map<std::string, std::string>;

/// A reading that ends the program; the line on standard error, without "ERROR: ".
struct Fault {
  std::string text;
};

/// An input that asks for more memory than a fuzzer should take.
struct TooLarge {};

inline Facts FactsOf(const Fault& fault) { return {{"fault", fault.text}}; }

/// Ends the program, with both results, when they differ.
void ExpectSame(const Facts& plain, const Facts& product);

template <typename Reading>
Facts FactsOrFault(Reading&& reading) {
  try {
    return reading();
  } catch (const Fault& fault) {
    return FactsOf(fault);
  }
}

/// Runs both and compares. The plain formulation goes first: it knows which inputs are too large.
template <typename Plain, typename Product>
void Compare(Plain&& plain, Product&& product) {
  Facts expected;
  try {
    expected = FactsOrFault(plain);
  } catch (const TooLarge&) {
    return;
  }
  ExpectSame(expected, FactsOrFault(product));
}

}  // namespace qvx::fuzz
