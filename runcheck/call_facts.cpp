#include "runcheck/call_facts.h"

#include <algorithm>
#include <utility>

#include "runcheck/similar_name.h"

namespace qvx::runcheck {
namespace {

bool IsSlash(char c) { return c == '\\' || c == '/'; }

std::vector<std::string> SplitAtStars(std::string_view list) {
  std::vector<std::string> tokens;
  for (std::size_t start = 0; start <= list.size();) {
    const std::size_t end = std::min(list.find('*', start), list.size());
    if (end > start) tokens.emplace_back(list.substr(start, end - start));
    start = end + 1;
  }
  return tokens;
}

}  // namespace

std::string CallFacts::Token(TokenNumber number) const {
  return number < tokens.size() ? tokens[number] : "";
}

CallFacts FactsOf(std::vector<std::string> arguments) {
  CallFacts facts = {};
  facts.arguments = std::move(arguments);
  facts.solver = facts.arguments.size() > 2 ? facts.arguments[2] : facts.arguments[1];
  const std::string lower = AsciiLower(facts.solver);
  facts.rule = FindClassRule(lower);
  facts.family = facts.rule == nullptr ? SolverClass::Flow : ClassOf(*facts.rule, lower);
  facts.isShell = IsShell(facts.family);
  facts.tokenSource = facts.isShell ? facts.arguments[0] : facts.arguments[1];
  facts.tokens = SplitAtStars(facts.tokenSource);
  if (facts.isShell && !facts.tokens.empty()) facts.tokens.erase(facts.tokens.begin());
  facts.hasEmptyToken = facts.tokenSource.find("**") != std::string_view::npos ||
                        (!facts.isShell && facts.tokenSource.starts_with('*'));
  return facts;
}

bool LooksLikePath(std::string_view text) {
  return text.find_first_of("\\/:") != std::string_view::npos;
}

bool IsAbsolutePath(std::string_view path) {
  if (path.size() >= 2 && IsSlash(path[0]) && IsSlash(path[1])) return true;
  const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  return path.size() >= 3 && isLetter(path[0]) && path[1] == ':' && IsSlash(path[2]);
}

std::string CommandLineOf(const std::vector<std::string>& launcherArguments) {
  std::string line;
  for (const std::string& argument : launcherArguments) {
    const bool isQuoted = argument.empty() || argument.find_first_of(" \t") != std::string::npos;
    line += (line.empty() ? "" : " ") + (isQuoted ? '"' + argument + '"' : argument);
  }
  return line;
}

}  // namespace qvx::runcheck
