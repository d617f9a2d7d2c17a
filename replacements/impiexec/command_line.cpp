// Takes the raw command line apart by the C runtime's rules, but expands no wildcards.
#include "replacements/impiexec/command_line.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <utility>

namespace impiexec {
namespace {

bool IsBlank(char character) { return character == ' ' || character == '\t'; }

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

void SkipBlanks(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
}

/// Looks at the beginning alone, like `std::strtol`, which reads the number.
bool IsNumber(std::string_view text) {
  SkipBlanks(text);
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  return !text.empty() && IsDigit(text.front());
}

/// Unlike in all other tokens, a backslash before a quote means nothing in the first.
void SkipOwnName(std::string_view& text) {
  bool inQuotes = false;
  for (; !text.empty() && (inQuotes || !IsBlank(text.front())); text.remove_prefix(1)) {
    if (text.front() == '"') inQuotes = !inQuotes;
  }
  SkipBlanks(text);
}

/// Takes a token by the C runtime's rules; what remains of `text` begins with the next one.
std::string TakeToken(std::string_view& text) {
  std::string token;
  bool inQuotes = false;
  while (!text.empty() && (inQuotes || !IsBlank(text.front()))) {
    const std::size_t backslashes = std::min(text.find_first_not_of('\\'), text.size());
    if (backslashes < text.size() && text[backslashes] == '"') {
      token.append(backslashes / 2, '\\');
      if (backslashes % 2 == 1) {
        token += '"';
      } else {
        inQuotes = !inQuotes;
      }
      text.remove_prefix(backslashes + 1);
    } else {
      const std::size_t length = std::max<std::size_t>(backslashes, 1);
      token += text.substr(0, length);
      text.remove_prefix(length);
    }
  }
  SkipBlanks(text);
  return token;
}

class Parser {
 public:
  explicit Parser(std::string_view text) {
    SkipOwnName(text);
    while (!text.empty()) tokens_.push_back(TakeToken(text));
  }

  CommandLine Parse() {
    result_.isEmpty = AtEnd();
    do {
      ReadGroup();
    } while (result_.error.empty() && !AtEnd());
    return std::move(result_);
  }

 private:
  [[nodiscard]] bool AtEnd() const { return next_ == tokens_.size(); }
  [[nodiscard]] const std::string& Peek() const { return tokens_[next_]; }
  const std::string& Take() { return tokens_[next_++]; }

  /// The options' last value may be missing.
  std::string TakeValue(std::string_view option, std::string_view what) {
    if (!AtEnd()) return Take();
    Fail(std::string(option) + " must be followed by " + std::string(what) + ".");
    return {};
  }

  void Fail(const std::string& error) {
    if (result_.error.empty()) result_.error = error;
  }

  void ReadGroup() {
    group_ = {};
    isCountGiven_ = false;
    while (!AtEnd() && result_.error.empty() && Peek().starts_with('-')) ReadOption();
    if (!isCountGiven_) group_.hosts.push_back({});
    ReadProgram();
    result_.groups.push_back(std::move(group_));
  }

  void ReadOption() {
    const std::string option = Take();
    if (option == "-env") {
      ReadVariable(option, group_.variables);
    } else if (option == "-genv") {
      ReadVariable(option, result_.globalVariables);
    } else if (option == "-wdir") {
      group_.folder = TakeValue(option, "a folder");
    } else if (option == "-l") {
      result_.labelsOutput = true;
    } else if (option == "-exitcodes") {
      result_.showsExitCodes = true;
    } else if (option == "-localonly") {
      if (!AtEnd() && IsNumber(Peek())) ReadLocalProcesses(option);
    } else if (option == "-n" || option == "-np") {
      ReadLocalProcesses(option);
    } else if (option == "-hosts") {
      ReadHosts();
    } else {
      result_.unknownOptions.push_back(option);
    }
  }

  void ReadVariable(std::string_view option, std::vector<Variable>& variables) {
    constexpr std::string_view kWhat = "a name and a value";
    std::string name = TakeValue(option, kWhat);
    variables.push_back({std::move(name), TakeValue(option, kWhat)});
  }

  void ReadLocalProcesses(std::string_view option) { group_.hosts = {{"", TakeCount(option)}}; }

  void ReadHosts() {
    group_.isDistributed = true;
    if (AtEnd() || !IsNumber(Peek())) {
      return Fail("You must specify the number of hosts after the -hosts option.");
    }
    const int count = TakeCount("-hosts");
    for (int i = 0; i < count && result_.error.empty(); ++i) {
      if (AtEnd() || Peek().starts_with('-')) {
        return Fail("You must specify " + std::to_string(count) +
                    " host names after the -hosts option.");
      }
      Host host{Take()};
      if (!AtEnd() && IsNumber(Peek())) host.processCount = CountOf(Take(), "-hosts");
      group_.hosts.push_back(std::move(host));
    }
  }

  /// Takes the count that determines the number of processes.
  int TakeCount(std::string_view option) {
    if (std::exchange(isCountGiven_, true)) {
      Fail("Only one option is allowed to determine the number of processes.");
    }
    return CountOf(TakeValue(option, "a number"), option);
  }

  int CountOf(const std::string& text, std::string_view option) {
    const int count = static_cast<int>(std::strtol(text.c_str(), nullptr, 10));
    if (count < 1) {
      Fail("You must specify a number greater than 0 after " + std::string(option) + ".");
    }
    return count;
  }

  void ReadProgram() {
    if (AtEnd() || Peek() == ":") return Fail("No program is given.");
    group_.program = Peek();
    std::vector<std::string> arguments;
    while (!AtEnd() && Peek() != ":") arguments.push_back(Take());
    group_.solverCommandLine = QuotedAnew(arguments);
    if (AtEnd()) return;
    Take();
    if (AtEnd()) Fail("No program is given.");
  }

  std::vector<std::string> tokens_;
  std::size_t next_ = 0;
  Group group_;
  bool isCountGiven_ = false;
  CommandLine result_;
};

}  // namespace

CommandLine ParseCommandLine(std::string_view text) { return Parser(text).Parse(); }

std::string QuotedAnew(const std::vector<std::string>& arguments) {
  std::string line;
  for (const std::string& argument : arguments) {
    if (!line.empty()) line += ' ';
    const bool isQuoted = argument.find_first_of(" \t") != std::string::npos;
    if (isQuoted) line += '"';
    for (const char character : argument) {
      if (character == '"') line += '\\';
      line += character;
    }
    if (isQuoted) line += '"';
  }
  return line;
}

}  // namespace impiexec
