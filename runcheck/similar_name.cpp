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
  const std::string_view extension = ExtensionOf(name);
  if (AsciiLower(extension) == AsciiLower(ExtensionOf(meant))) {
    name.remove_suffix(extension.size());
    meant.remove_suffix(extension.size());
  }
  const std::string plainName = Plain(name);
  const std::string plainMeant = Plain(meant);
  const std::size_t most = std::clamp<std::size_t>(plainMeant.size() / 4, 1, 4);
  return EditDistance(plainName, plainMeant, most) <= most;
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
    const std::size_t distance = EditDistance(Plain(name), Plain(candidate), kLongestName);
    if (!best.empty() && distance >= least) continue;
    best = candidate;
    least = distance;
  }
  return best;
}

}  // namespace qvx::runcheck
