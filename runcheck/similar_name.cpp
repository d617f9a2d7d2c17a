#include "runcheck/similar_name.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <numeric>
#include <vector>

namespace qvx::runcheck {
namespace {

constexpr std::size_t kLongestName = 64;

std::string Plain(std::string_view name) {
  std::string plain = AsciiLower(name);
  std::erase_if(plain, [](char c) { return c == ' ' || c == '\t' || c == '_' || c == '-'; });
  return plain;
}

}  // namespace

std::string AsciiLower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

std::size_t EditDistance(std::string_view left, std::string_view right, std::size_t most) {
  // Nearly all pairs of names end here: at least the letters that one of them lacks have to change.
  std::array<int, 256> letters = {};
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
  if (name.size() > kLongestName) return false;
  const std::string plainName = Plain(name);
  const std::string plainMeant = Plain(meant);
  // A third of a short word would make it any other.
  const std::size_t most =
      plainMeant.size() < 5 ? 1 : std::min<std::size_t>(plainMeant.size() / 4 + 1, 4);
  return EditDistance(plainName, plainMeant, most) <= most;
}

std::string_view MostSimilar(std::string_view name, std::span<const std::string_view> names) {
  std::string_view best;
  std::size_t least = 0;
  for (const std::string_view candidate : names) {
    if (!IsSimilar(name, candidate)) continue;
    const std::size_t distance = EditDistance(Plain(name), Plain(candidate), kLongestName);
    if (!best.empty() && distance >= least) continue;
    best = candidate;
    least = distance;
  }
  return best;
}

}  // namespace qvx::runcheck
