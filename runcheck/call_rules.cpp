#include "runcheck/call_rules.h"

#include <algorithm>
#include <string>

#include "runcheck/cmx_facts.h"
#include "runcheck/similar_name.h"
#include "support/numbers.h"

namespace qvx::runcheck {
namespace {

constexpr const char* kTokenNames[] = {"home folder", "project directory", "project name", "option",
                                       "run number"};

/// `text` without `clean`, which stands in it.
std::string Around(std::string text, const std::string& clean) {
  return text.erase(text.find(clean), clean.size());
}

bool IsInteger(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  return IsPlainNumber(text);
}

std::ptrdiff_t Stars(std::string_view text) { return std::ranges::count(text, '*'); }

/// True for the shell form without a second argument of its own: the name alone stands there.
bool IsShortShellForm(const CallFacts& facts) {
  return facts.isShell && Stars(facts.arguments[0]) >= 4 && Stars(facts.solver) == 0 &&
         !LooksLikePath(facts.solver);
}

/// True when the arguments were one text that a blank cut.
bool IsCutByBlank(const CallFacts& facts) {
  if (facts.arguments.size() <= 3) return false;
  std::string joined = facts.arguments[1];
  for (std::size_t i = 2; i + 1 < facts.arguments.size(); ++i) joined += " " + facts.arguments[i];
  return Stars(facts.arguments[1]) < 4 && Stars(joined) >= 4;
}

/// The launcher's own name and its `$` are left out.
bool IsFirstMissing(const CallFacts& facts) {
  return facts.arguments.size() == 2 && !facts.isShell && Stars(facts.arguments[0]) >= 3 &&
         Stars(facts.arguments[1]) == 0;
}

/// The launcher's name stands before it once more.
bool IsFirstTwice(const CallFacts& facts) {
  return facts.arguments.size() > 3 && IsLauncherName(facts.arguments[1]);
}

/// The launcher's name stands where the solver does, and a solver's where the launcher does.
bool IsReversed(const CallFacts& facts) {
  const std::vector<std::string>& arguments = facts.arguments;
  return arguments.size() == 3 && IsLauncherName(arguments[2]) && !IsLauncherName(arguments[0]) &&
         Stars(arguments[0]) == 0 && FindClassRule(AsciiLower(LastPart(arguments[0]))) != nullptr;
}

/// Each token is an argument of its own.
bool AreTokensApart(const CallFacts& facts) {
  const std::vector<std::string>& arguments = facts.arguments;
  return arguments.size() > kTokenCount && LooksLikePath(arguments[1]) &&
         LooksLikePath(arguments[2]) &&
         std::ranges::all_of(arguments, [](const std::string& one) { return Stars(one) == 0; });
}

Diagnostic TokensApart(const CallFacts& facts) {
  const auto tokens = facts.arguments.begin() + 1;
  std::string list;
  for (auto token = tokens; token != tokens + kTokenCount; ++token) {
    list += (list.empty() ? "" : "*") + *token;
  }
  std::vector<std::string> call = {facts.arguments[0], list};
  call.insert(call.end(), tokens + kTokenCount, facts.arguments.end());
  if (call.size() > 2 && FactsOf(call).isShell) {
    call[0] += "*" + list;
    call[1] = "-";
  }
  const std::string right = CommandLineOf(call);
  return Diagnostic("call-separator", "the 5 tokens stand in 5 arguments, not in one")
      .Because("the launcher would take the first of them as the whole list")
      .Suggest(right, "they stand in one argument, separated by *: " + right);
}

void CheckArgumentCount(const CallFacts& facts, Diagnostics& found) {
  const std::size_t count = facts.arguments.size();
  if (count == 2 && !IsShortShellForm(facts)) {
    found.push_back(Diagnostic("call-solver", "the call names no solver"));
  } else if (count > 3) {
    found.push_back(
        Diagnostic("call-extra-arguments", "the call has " + std::to_string(count) + " arguments"));
  }
}

/// A backslash before a closing quotation mark leaves one where a folder ends, and none opens it.
bool MayLackABackslash(const std::string& argument) {
  if (argument.starts_with('"') || argument.find("*\"") != std::string::npos) return false;
  for (std::size_t at = 0; (at = argument.find('"', at)) != std::string::npos; ++at) {
    const std::string before = argument.substr(0, at);
    const bool isAtEnd =
        at + 1 == argument.size() || argument[at + 1] == '*' || argument[at + 1] == ' ';
    if (isAtEnd && LooksLikePath(before.substr(before.rfind('*') + 1))) return true;
  }
  return false;
}

/// True when a mark keeps the tokens from being what they were meant to be.
bool CheckQuotationMarks(const CallFacts& facts, bool leadsToARun, Diagnostics& found) {
  for (const std::string& argument : facts.arguments) {
    if (argument.find('"') == std::string::npos) continue;
    Diagnostic diagnostic("call-quotation-mark", argument + " holds a quotation mark");
    std::string clean = argument;
    std::erase(clean, '"');
    if (argument == facts.solver) {
      found.push_back(diagnostic.Grave()
                          .Because("the launcher would find no solver and stop with -1")
                          .Suggest(clean, "the solver is written " + clean));
      return true;
    }
    if (!MayLackABackslash(argument)) {
      diagnostic.Suggest(clean, "it is written without them, " + clean);
    }
    if (leadsToARun) {
      diagnostic.Because("the launcher would hand it on as it stands");
    } else {
      diagnostic.Grave();
    }
    found.push_back(diagnostic);
    return !leadsToARun;
  }
  return false;
}

void CheckMoldingType(const CallFacts& facts, Diagnostics& found) {
  if (!TakesMoldingType(facts.family)) return;
  const std::string& first = facts.arguments[0];
  const std::size_t marker = first.find('$');
  if (marker == std::string::npos) {
    found.push_back(Diagnostic("molding-type", "no $ stands in " + first)
                        .Because("the launcher would take -1 as the molding type"));
    return;
  }
  // A shell solver's tokens may stand behind it by mistake; that has its own rule.
  const std::string behind = first.substr(marker + 1);
  const std::string whole = behind.substr(0, behind.find('*'));
  const std::string text(Trimmed(whole));
  if (text.find('$') != std::string::npos) {
    found.push_back(Diagnostic("molding-type", first + " holds more than one $")
                        .Because("the launcher would read the molding type behind the first one"));
  } else if (!IsInteger(text)) {
    const std::string what = text.empty() ? "nothing" : text;
    found.push_back(Diagnostic("molding-type", what + " stands behind $, no number")
                        .Because("the launcher would take " +
                                 std::to_string(ParseInteger(whole.substr(0, 7).c_str())) +
                                 " as the molding type"));
  } else if (text.size() > 7) {
    found.push_back(
        Diagnostic("molding-type", "the molding type " + text + " has more than 7 digits")
            .Because("the launcher would take " + text.substr(0, 7)));
  }
}

/// The tokens stand where this family does not read them. True when nothing else can be said.
bool CheckForm(const CallFacts& facts, Diagnostics& found) {
  const std::string family = TextsOf(facts.family).name;
  if (facts.isShell && Stars(facts.arguments[0]) < 4 && Stars(facts.arguments[1]) >= 4) {
    found.push_back(Diagnostic("call-form", facts.solver + " is a shell solver (" + family +
                                                ") and its tokens stand in the second argument"));
    return true;
  }
  if (!facts.isShell && Stars(facts.arguments[0]) >= 4 && Stars(facts.arguments[1]) < 4) {
    found.push_back(Diagnostic("call-form", facts.solver + " is no shell solver (" + family +
                                                ") and its tokens stand in the first argument"));
    return true;
  }
  return false;
}

bool CheckSeparator(const CallFacts& facts, Diagnostics& found) {
  if (facts.tokens.size() > 1) return false;
  for (const char separator : {';', '|', ',', '+', '\t', '/'}) {
    if (std::ranges::count(facts.tokenSource, separator) < 3) continue;
    // Slashes may be those of a path.
    if (separator == '/' && facts.tokenSource.find('\\') == std::string_view::npos) continue;
    std::string right(facts.tokenSource);
    std::ranges::replace(right, separator, '*');
    found.push_back(
        Diagnostic("call-separator", std::string("the tokens are separated by ") +
                                         (separator == '\t' ? "tabs" : std::string(1, separator)) +
                                         " and not by *")
            .Suggest(right, "the list is written " + right));
    return true;
  }
  return false;
}

/// Which of the tokens is missing, as far as the four others tell it.
std::string MissingToken(const CallFacts& facts) {
  const std::vector<std::string>& tokens = facts.tokens;
  if (tokens.size() != kTokenCount - 1) return "";
  const auto is = [](const std::string& token) { return ": the " + token + " is missing"; };
  const bool hasPaths = LooksLikePath(tokens[0]) && LooksLikePath(tokens[1]);
  if (!hasPaths && LooksLikePath(tokens[0])) return is("home folder or the project directory");
  if (!hasPaths) return ": one of the 5 is missing";
  if (!IsInteger(tokens[3])) return is("run number");
  if (IsInteger(tokens[2])) return is("project name");
  // Run numbers are written with a zero, options are not.
  return is(tokens[3].starts_with('0') && tokens[3].size() > 1 ? "option"
                                                               : "option or the run number");
}

/// True when the tokens can be taken for what they are.
bool CheckTokenCount(const CallFacts& facts, Diagnostics& found) {
  const std::size_t count = facts.tokens.size();
  if (facts.hasEmptyToken && count == kTokenCount) {
    found.push_back(Diagnostic("call-empty-token", "the token list holds an empty token")
                        .Because("the launcher would skip it")
                        .Help("one * stands between two tokens"));
    return true;
  }
  if (facts.hasEmptyToken) {
    std::string right(facts.tokenSource);
    for (std::size_t at = 0; (at = right.find("**", at)) != std::string::npos; ++at) {
      right.insert(at + 1, "0");
    }
    found.push_back(Diagnostic("call-empty-token", "the token list holds an empty token")
                        .Grave()
                        .Suggest(right, "a token that is not needed is written 0"));
    return false;
  }
  if (count < kTokenCount) {
    found.push_back(Diagnostic("call-tokens", "the token list holds " + std::to_string(count) +
                                                  " of 5 tokens" + MissingToken(facts))
                        .Grave());
    return false;
  }
  const std::size_t most = facts.isShell ? 8 : 5;
  if (count > most) {
    found.push_back(Diagnostic("call-tokens", "the token list holds " + std::to_string(count) +
                                                  " tokens, more than " + std::to_string(most))
                        .Because("the launcher would ignore the rest")
                        .Help("a * in a name cuts it in two tokens"));
  }
  return true;
}

/// True when every token can be what its place says, or the run comes through nevertheless.
bool CheckTokenOrder(const CallFacts& facts, bool leadsToARun, Diagnostics& found) {
  const auto add = [&](const std::string& summary) {
    Diagnostic diagnostic("call-token-order", summary);
    if (leadsToARun) {
      diagnostic.Because("the launcher would hand it on as it stands");
    } else {
      diagnostic.Grave();
    }
    found.push_back(diagnostic);
    return leadsToARun;
  };
  const std::string wrong =
      LooksLikePath(facts.Token(kProjectName)) ? "the project name is " + facts.Token(kProjectName)
      : LooksLikePath(facts.Token(kOptionValue)) ? "the option is " + facts.Token(kOptionValue)
      : LooksLikePath(facts.Token(kRunNumber))   ? "the run number is " + facts.Token(kRunNumber)
                                                 : "";
  if (!wrong.empty()) return add(wrong + ", a path");
  // A number where the name belongs and a name after it.
  const bool nameIsLate =
      IsInteger(facts.Token(kProjectName)) && !IsInteger(facts.Token(kOptionValue));
  const bool runIsEarly =
      !IsInteger(facts.Token(kRunNumber)) && IsInteger(facts.Token(kOptionValue)) &&
      facts.Token(kOptionValue).size() > 1 && facts.Token(kOptionValue).starts_with('0');
  const bool isRunNamed = !IsInteger(facts.Token(kRunNumber)) &&
                          !AsciiLower(facts.Token(kRunNumber)).starts_with("run");
  if (!nameIsLate && IsInteger(facts.Token(kProjectName)) && isRunNamed) {
    return add("the project name is " + facts.Token(kProjectName) + " and the run number is " +
               facts.Token(kRunNumber));
  }
  if (nameIsLate && !IsInteger(facts.Token(kRunNumber))) {
    return add("the project name is " + facts.Token(kProjectName) + " and the option is " +
               facts.Token(kOptionValue));
  }
  if (runIsEarly) {
    return add("the option is " + facts.Token(kOptionValue) + " and the run number is " +
               facts.Token(kRunNumber));
  }
  return true;
}

/// True when none moves the run elsewhere.
bool CheckBlanks(const CallFacts& facts, bool leadsToARun, Diagnostics& found) {
  bool areHarmless = true;
  const auto check = [&](const std::string& what, const std::string& text, bool isHarmless) {
    const std::string clean(TrimmedOfInvisible(text));
    if (clean == text || clean.empty()) return;
    found.push_back(Diagnostic("call-blank", WithArticle(NameOfInvisible(Around(text, clean))) +
                                                 " stands beside the " + what + " " + clean)
                        .Grave(!isHarmless)
                        .Suggest(clean, "it is written " + clean));
    areHarmless = areHarmless && isHarmless;
  };
  for (std::size_t i = 0; i < std::min<std::size_t>(facts.tokens.size(), kTokenCount); ++i) {
    // Numbers are read with blanks before them.
    if (i != kOptionValue) check(kTokenNames[i], facts.tokens[i], i == kProjectName && leadsToARun);
  }
  // The system takes blanks off a path's end.
  const bool isBefore = facts.solver.starts_with(' ') || !facts.solver.ends_with(' ');
  if (facts.arguments.size() > 2) check("solver", facts.solver, !isBefore);
  return areHarmless;
}

void CheckOption(const CallFacts& facts, Diagnostics& found) {
  const std::string option = facts.Token(kOptionValue);
  if (!TakesOption(facts.family) || IsInteger(TrimmedOfInvisible(option))) return;
  const std::string number = std::to_string(ParseInteger(option.c_str()));
  found.push_back(Diagnostic("option-value", "the option is " + option + ", no number")
                      .Because("the launcher would read it as " + number));
}

/// "L$1*tokens" for "L*tokens$1"; empty for one that has no $ behind its tokens.
std::string WithMarkerInFront(std::string argument) {
  const std::size_t star = argument.find('*');
  const std::size_t marker = argument.find('$');
  if (star == std::string::npos || marker == std::string::npos || marker < star) return {};
  const std::string type = argument.substr(marker, argument.find('*', marker) - marker);
  return argument.erase(marker, type.size()).insert(star, type);
}

/// True when the run folder may bear it.
bool CheckRunNumber(const CallFacts& facts, Diagnostics& found) {
  const std::string run(TrimmedOfInvisible(facts.Token(kRunNumber)));
  // A longer one is told by its width.
  const bool isNumber = IsInteger(run) || (!facts.isShell && run.find_first_not_of("0123456789") ==
                                                                 std::string::npos);
  if (run.empty() || isNumber) return true;
  if (run.find('"') != std::string::npos) return false;  // has its own rule
  Diagnostic diagnostic("run-number", "the run number is " + run + ", no number");
  if (facts.isShell) {
    // The digits that it begins with decide.
    diagnostic.Grave(!IsPlainNumber(run.substr(0, 1)))
        .Because("the launcher would take the folder Run" + facts.FolderNumber());
    if (const std::string right = WithMarkerInFront(facts.arguments[0]); !right.empty()) {
      diagnostic.Suggest(right, "the first argument is written " + right);
    }
  } else if (AsciiLower(run).starts_with("run")) {
    diagnostic.Grave()
        .Because("the launcher would look in the folder Run" + run)
        .Suggest(run.substr(3), "the run number is written " + run.substr(3));
  }
  found.push_back(diagnostic);
  return diagnostic.severity != kError;
}

/// "ic" as a word of its own: Ic.exe, QvxIC.exe, Qvx-IC-2.exe.
bool IsWordIc(std::string_view name) {
  for (std::size_t at = 0; (at = AsciiLower(name).find("ic", at)) != std::string::npos; ++at) {
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    const bool isCapital = name[at] == 'I' && name[at + 1] == 'C';
    const bool opens =
        at == 0 || !isLetter(name[at - 1]) || isCapital || AsciiLower(name.substr(0, at)) == "qvx";
    const bool ends = at + 2 == name.size() || !isLetter(name[at + 2]);
    if (opens && ends) return true;
  }
  return false;
}

void CheckSolverName(const CallFacts& facts, Diagnostics& found) {
  if (facts.arguments.size() < 3) return;
  const std::string& solver = facts.solver;
  if (TrimmedOfInvisible(solver).empty()) {
    found.push_back(Diagnostic("call-solver", "the solver's name is empty")
                        .Because("the launcher would find no solver and stop with -1"));
    return;
  }
  if (LooksLikePath(solver)) {
    const std::string name = solver.substr(solver.find_last_of("\\/:") + 1);
    found.push_back(Diagnostic("solver-path", "the solver " + solver + " holds a path")
                        .Suggest(name, "the solver is written " + name));
    return;
  }
  if (IsLauncherName(solver)) {
    found.push_back(Diagnostic("solver-name", "the solver is " + solver + ", the launcher")
                        .Grave()
                        .Because("the launcher would take itself for the solver")
                        .Help("the solver's file name is the third argument"));
    return;
  }
  const std::string family = TextsOf(facts.family).name;
  if (facts.rule == nullptr) {
    found.push_back(Diagnostic(
        "solver-name", "no rule fits the solver's name " + solver + ", which runs as FLOW"));
    return;
  }
  const std::string lower = AsciiLower(solver);
  if (facts.rule->text == "ic" && !IsWordIc(solver)) {
    found.push_back(
        Diagnostic("solver-rule", solver + " runs as IC because its name contains ic").Grave());
  } else if (facts.rule->text == "qvx3dic") {
    found.push_back(
        Diagnostic("solver-rule", solver + " runs as WS because its name contains qvx3dic")
            .Help("PS has names with qvx3dicps, IC names without qvx3d"));
  }
  // The first family word counts: another one in the name has no say.
  for (const std::string_view word : {"flow", "pack", "cool", "warp", "stress", "optics"}) {
    if (word == facts.rule->text || lower.find(word) == std::string::npos) continue;
    found.push_back(Diagnostic("solver-rule", solver + " runs as " + family +
                                                  " although its name contains " +
                                                  std::string(word))
                        .Grave());
    return;
  }
}

}  // namespace

bool CheckCall(const CallFacts& facts, Diagnostics& found, bool leadsToARun) {
  if (IsFirstMissing(facts)) {
    found.push_back(Diagnostic("call-first-argument", "the first argument is missing"));
    return false;
  }
  if (IsFirstTwice(facts)) {
    found.push_back(
        Diagnostic("call-first-argument", "the first argument stands twice: " + facts.arguments[0] +
                                              " is one argument too many")
            .Because("the launcher would take the second of them for the token list"));
    return false;
  }
  if (IsReversed(facts)) {
    const std::string right =
        CommandLineOf({facts.arguments[2], facts.arguments[1], facts.arguments[0]});
    found.push_back(Diagnostic("call-token-order", "the first argument and the solver are swapped")
                        .Grave()
                        .Because("the launcher would take itself for the solver")
                        .Suggest(right, "the call is written " + right));
    return false;
  }
  if (AreTokensApart(facts)) {
    found.push_back(TokensApart(facts));
    return false;
  }
  if (IsCutByBlank(facts)) {
    found.push_back(Diagnostic("call-unquoted-blank",
                               "a blank cuts the token list behind " + facts.arguments[1]));
    return false;
  }
  if (facts.arguments.size() == 3 && Stars(facts.arguments[1]) == 0 &&
      Stars(facts.arguments[2]) >= 3) {
    found.push_back(Diagnostic("call-token-order", "the solver stands before the token list")
                        .Grave()
                        .Because("the launcher would take the one for the other")
                        .Help("a call is FIRST_ARGUMENT TOKENS SOLVER"));
    return false;
  }
  const bool hasMarks = CheckQuotationMarks(facts, leadsToARun, found);
  CheckMoldingType(facts, found);
  CheckArgumentCount(facts, found);
  if (facts.arguments.size() < 3 && !IsShortShellForm(facts)) return false;
  CheckSolverName(facts, found);
  const bool hasNoBlanks = CheckBlanks(facts, leadsToARun, found);
  if (CheckForm(facts, found) || CheckSeparator(facts, found)) return false;
  if (!CheckTokenCount(facts, found)) return false;
  const bool isOrdered = CheckTokenOrder(facts, leadsToARun, found);
  CheckOption(facts, found);
  const bool hasRunNumber = isOrdered && CheckRunNumber(facts, found);
  return !hasMarks && hasNoBlanks && hasRunNumber;
}

}  // namespace qvx::runcheck
