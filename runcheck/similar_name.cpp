#include "runcheck/similar_name.h"

#include <algorithm>
#include <cstddef>
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

std::size_t EditDistance(std::string_view left, std::string_view right) {
  // rows[i][j]: the distance of the first i letters of one to the first j of the other.
  std::vector<std::vector<std::size_t>> rows(left.size() + 1,
                                             std::vector<std::size_t>(right.size() + 1));
  for (std::size_t i = 0; i <= left.size(); ++i) {
    for (std::size_t j = 0; j <= right.size(); ++j) {
      if (i == 0 || j == 0) {
        rows[i][j] = i + j;
        continue;
      }
      const std::size_t replaced = rows[i - 1][j - 1] + (left[i - 1] == right[j - 1] ? 0 : 1);
      rows[i][j] = std::min({replaced, rows[i - 1][j] + 1, rows[i][j - 1] + 1});
      if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
        rows[i][j] = std::min(rows[i][j], rows[i - 2][j - 2] + 1);
      }
    }
  }
  return rows[left.size()][right.size()];
}

bool IsSimilar(std::string_view name, std::string_view meant) {
  if (name.size() > kLongestName) return false;
  const std::string plainName = Plain(name);
  const std::string plainMeant = Plain(meant);
  // A third of a short word would make it any other.
  const std::size_t most =
      plainMeant.size() < 5 ? 1 : std::min<std::size_t>(plainMeant.size() / 4 + 1, 4);
  return EditDistance(plainName, plainMeant) <= most;
}

std::string_view MostSimilar(std::string_view name, std::span<const std::string_view> names) {
  std::string_view best;
  std::size_t least = 0;
  for (const std::string_view candidate : names) {
    if (!IsSimilar(name, candidate)) continue;
    const std::size_t distance = EditDistance(Plain(name), Plain(candidate));
    if (!best.empty() && distance >= least) continue;
    best = candidate;
    least = distance;
  }
  return best;
}

}  // namespace qvx::runcheck
