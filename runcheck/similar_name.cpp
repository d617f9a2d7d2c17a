#include "runcheck/similar_name.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <optional>
#include <vector>

namespace qvx::runcheck {
namespace {

constexpr std::size_t kLongestName = 64;

/// Whether the character does not count where names are compared.
bool IsIgnored(char c) { return c == ' ' || c == '\t' || c == '_' || c == '-'; }

std::string Plain(std::string_view name) {
  std::string plain = AsciiLower(name);
  std::erase_if(plain, IsIgnored);
  return plain;
}

/// The letters that may differ.
std::size_t MostIn(std::size_t plainLength) {
  return std::clamp<std::size_t>(plainLength / 4, 1, 4);
}

/// ".exe" of "Qvx.exe"; empty for a name without one.
std::string_view ExtensionOf(std::string_view name) {
  return name.substr(std::min(name.rfind('.'), name.size()));
}

/// Enough of a plain name to tell most pairs apart without making it.
struct Outline {
  std::size_t length = 0;
  std::uint64_t letters = 0;  ///< a bit for each character that is in it; some share one

  explicit Outline(std::string_view name) {
    for (const char c : name) {
      if (IsIgnored(c)) continue;
      ++length;
      letters |= std::uint64_t{1} << (static_cast<unsigned char>(AsciiLower(c)) % 64U);
    }
  }
};

/// False when too many letters differ, whatever their order. Each change mends at most one letter
/// that the other lacks; an extension that both have changes nothing.
bool MayBeSimilar(const Outline& name, const Outline& meant) {
  const std::size_t most = MostIn(meant.length);
  const auto lacks = [&](const Outline& one, const Outline& other) {
    return static_cast<std::size_t>(std::popcount(one.letters & ~other.letters)) > most;
  };
  return name.length <= meant.length + most && meant.length <= name.length + most &&
         !lacks(name, meant) && !lacks(meant, name);
}

/// The letters that differ; nothing when they are too many for the one to be the other misspelt.
std::optional<std::size_t> Difference(std::string_view name, const Outline& outline,
                                      std::string_view meant) {
  if (name.size() > kLongestName || !MayBeSimilar(outline, Outline(meant))) return std::nullopt;
  const std::string_view extension = ExtensionOf(name);
  if (IsSameInAnyCase(extension, ExtensionOf(meant))) {
    name.remove_suffix(extension.size());
    meant.remove_suffix(extension.size());
  }
  const std::string plainMeant = Plain(meant);
  const std::size_t most = MostIn(plainMeant.size());
  const std::size_t distance = EditDistance(Plain(name), plainMeant, most);
  return distance <= most ? std::optional(distance) : std::nullopt;
}

bool IsCapital(char c) { return c >= 'A' && c <= 'Z'; }

}  // namespace

std::string AsciiLower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = AsciiLower(c);
  return lower;
}

bool IsSameInAnyCase(std::string_view left, std::string_view right) {
  return left.size() == right.size() && StartsInAnyCase(left, right);
}

bool StartsInAnyCase(std::string_view text, std::string_view start) {
  if (text.size() < start.size()) return false;
  for (std::size_t i = 0; i < start.size(); ++i) {
    if (AsciiLower(text[i]) != AsciiLower(start[i])) return false;
  }
  return true;
}

std::size_t EditDistance(std::string_view left, std::string_view right, std::size_t most) {
  // Nearly all pairs of names end here: at least the letters that one of them lacks have to change.
  std::array<std::int16_t, 256> letters = {};
  for (const char c : right) ++letters[static_cast<unsigned char>(c)];
  std::size_t lacking = 0;
  for (const char c : left) lacking += --letters[static_cast<unsigned char>(c)] < 0 ? 1 : 0;
  if (std::max(lacking, lacking + right.size() - left.size()) > most) return most + 1;
  // row[j], of the letter i: the distance of the first i letters of one to the first j of the
  // other.
  std::vector<std::size_t> row(right.size() + 1);
  std::vector<std::size_t> above = row;
  std::vector<std::size_t> twoAbove = row;
  std::iota(row.begin(), row.end(), 0);
  // No row's least is below the least of the row above it.
  for (std::size_t i = 1; i <= left.size() && *std::ranges::min_element(row) <= most; ++i) {
    twoAbove.swap(above);
    above.swap(row);
    row[0] = i;
    for (std::size_t j = 1; j <= right.size(); ++j) {
      const std::size_t replaced = above[j - 1] + (left[i - 1] == right[j - 1] ? 0 : 1);
      row[j] = std::min({replaced, above[j] + 1, row[j - 1] + 1});
      if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
        row[j] = std::min(row[j], twoAbove[j - 2] + 1);
      }
    }
  }
  return row.back();
}

bool IsSimilar(std::string_view name, std::string_view meant) {
  return Difference(name, Outline(name), meant).has_value();
}

bool IsShortened(std::string_view name, std::string_view meant) {
  std::string_view rest = meant;
  for (std::size_t start = 0; start < name.size();) {
    std::size_t end = start + 1;
    while (end < name.size() && !IsCapital(name[end])) ++end;
    if (name.size() - start > rest.size()) return false;
    const std::string_view word = name.substr(start, end - start);
    while (!StartsInAnyCase(rest, word)) {
      if (rest.size() <= word.size()) return false;
      rest.remove_prefix(1);
    }
    rest.remove_prefix(word.size());
    start = end;
  }
  return true;
}

std::string_view MostSimilar(std::string_view name, std::span<const std::string_view> names) {
  std::string_view best;
  std::size_t least = kLongestName;
  const Outline outline(name);
  for (const std::string_view candidate : names) {
    const std::optional<std::size_t> difference = Difference(name, outline, candidate);
    if (!difference || *difference >= least) continue;
    best = candidate;
    least = *difference;
  }
  return best;
}

}  // namespace qvx::runcheck
