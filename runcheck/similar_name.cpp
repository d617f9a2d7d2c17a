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

/// ".exe" of "Qvx.exe"; empty for a name without one.
std::string_view ExtensionOf(std::string_view name) {
  return name.substr(std::min(name.rfind('.'), name.size()));
}

bool IsCapital(char c) { return c >= 'A' && c <= 'Z'; }

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
  const std::string_view extension = ExtensionOf(name);
  if (AsciiLower(extension) == AsciiLower(ExtensionOf(meant))) {
    name.remove_suffix(extension.size());
    meant.remove_suffix(extension.size());
  }
  const std::string plainName = Plain(name);
  const std::string plainMeant = Plain(meant);
  const std::size_t most = std::clamp<std::size_t>(plainMeant.size() / 4, 1, 4);
  return EditDistance(plainName, plainMeant) <= most;
}

bool IsShortened(std::string_view name, std::string_view meant) {
  const std::string whole = AsciiLower(meant);
  std::size_t at = 0;
  for (std::size_t start = 0; start < name.size();) {
    std::size_t end = start + 1;
    while (end < name.size() && !IsCapital(name[end])) ++end;
    const std::string word = AsciiLower(name.substr(start, end - start));
    at = whole.find(word, at);
    if (at == std::string::npos) return false;
    at += word.size();
    start = end;
  }
  return true;
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
