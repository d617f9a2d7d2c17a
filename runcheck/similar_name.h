// Finds the name that a misspelt one was meant to be.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace qvx::runcheck {

/// A to Z only: bytes beyond belong to a code page that this does not know.
constexpr char AsciiLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
std::string AsciiLower(std::string_view text);

/// True when the letter case of A to Z alone may differ.
bool IsSameInAnyCase(std::string_view left, std::string_view right);
bool StartsInAnyCase(std::string_view text, std::string_view start);

/// Letters to insert, remove, replace or swap with their neighbour; above `most`, any number above
/// it.
std::size_t EditDistance(std::string_view left, std::string_view right, std::size_t most);

/// True when few enough letters differ that one can be the other misspelt: a quarter of them, at
/// least one. Letter case, blanks, underscores and an extension that both have do not count.
bool IsSimilar(std::string_view name, std::string_view meant);

/// True when `meant` with words left out is `name`: "ValueFolder" of "ValueShareFolder". A word
/// begins with a capital letter.
bool IsShortened(std::string_view name, std::string_view meant);

/// The most similar of `names`; empty when none is similar.
std::string_view MostSimilar(std::string_view name, std::span<const std::string_view> names);

}  // namespace qvx::runcheck
