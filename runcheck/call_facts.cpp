#include "runcheck/call_facts.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "runcheck/similar_name.h"
#include "support/numbers.h"
#include "support/trailing_backslash.h"

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
  const auto at = static_cast<std::size_t>(number);
  return at < tokens.size() ? tokens[at] : "";
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

std::string CallFacts::FolderNumber() const {
  std::string run = Token(kRunNumber);
  if (!isShell) return run;
  char text[16];
  std::snprintf(text, sizeof text, "%02d", ParseInteger(run.c_str()));
  return text;
}

std::size_t FindCharacter(std::string_view text, std::string_view characters, std::size_t from) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (IsLeadByte(text[at])) {
      ++at;
    } else if (at >= from && characters.find(text[at]) != std::string_view::npos) {
      return at;
    }
  }
  return std::string_view::npos;
}

bool LooksLikePath(std::string_view text) {
  return FindCharacter(text, "\\/:", 0) != std::string_view::npos;
}

bool EndsInSlash(std::string_view path) {
  return !path.empty() && LastSeparator(path) == path.size() - 1;
}

std::size_t LastSeparator(std::string_view path) {
  std::size_t last = std::string_view::npos;
  for (std::size_t at = 0; at < path.size(); ++at) {
    if (IsLeadByte(path[at])) {
      ++at;
    } else if (IsSlash(path[at])) {
      last = at;
    }
  }
  return last;
}

std::string LastPart(std::string_view path) {
  return std::string(path.substr(LastSeparator(path) + 1));
}

std::string WithExtension(const std::string& path) {
  return LastPart(path).find('.') == std::string::npos ? path + ".exe" : path;
}

bool IsLauncherName(std::string_view argument) {
  const std::string last = AsciiLower(LastPart(argument.substr(0, argument.find('*'))));
  const std::string name = last.substr(0, last.find('$'));
  return name == "qvxsolverlauncher" || name == "qvxsolverlauncher.exe";
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
