// Reads the options from the front of the raw command line. It works on the raw text because the
// solvers must get their arguments exactly as they were written.
#include "replacements/impiexec/command_line.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace impiexec {
namespace {

bool IsBlank(char character) { return character == ' ' || character == '\t'; }

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

bool IsNumber(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

/// 0 unless `text` is a number greater than 0.
int CountOf(std::string_view text) {
  int count = 0;
  if (IsNumber(text)) std::from_chars(text.data(), text.data() + text.size(), count);
  return count;
}

void SkipBlanks(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
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
  explicit Parser(std::string_view text) : rest_(text) { SkipOwnName(rest_); }

  CommandLine Parse() {
    while (!AtEnd() && result_.error.empty() && PeekToken().starts_with('-')) ReadOption();
    if (result_.error.empty()) ReadProgram();
    return std::move(result_);
  }

 private:
  bool AtEnd() const { return rest_.empty(); }

  std::string PeekToken() const {
    std::string_view text = rest_;
    return TakeToken(text);
  }

  void Fail(std::string_view error) { result_.error = error; }

  void ReadOption() {
    const std::string option = TakeToken(rest_);
    if (option == "-env") {
      ReadVariable();
    } else if (option == "-localonly") {
      if (IsNumber(PeekToken())) ReadLocalProcesses(option);
    } else if (option == "-n" || option == "-np") {
      ReadLocalProcesses("-n");
    } else if (option == "-hosts") {
      ReadHosts();
    } else {
      result_.unknownOptions.push_back(option);
    }
  }

  void ReadVariable() {
    std::string name = TakeToken(rest_);
    if (AtEnd()) return Fail("-env must be followed by a name and a value");
    result_.variables.push_back({std::move(name), TakeToken(rest_)});
  }

  void ReadLocalProcesses(std::string_view option) {
    const int count = ReadCount(option);
    if (count > 0) result_.hosts.push_back({"", count});
  }

  void ReadHosts() {
    const int count = ReadCount("-hosts");
    for (int i = 0; i < count; ++i) {
      if (AtEnd() || PeekToken().starts_with('-')) {
        return Fail("must specify " + std::to_string(count) +
                    " host names after the -hosts option");
      }
      Host host{TakeToken(rest_)};
      if (IsNumber(PeekToken())) host.processCount = TakeCount("-hosts");
      result_.hosts.push_back(std::move(host));
    }
  }

  /// Reads the count of an option that determines the number of processes. 0 after a failure.
  int ReadCount(std::string_view option) {
    if (std::exchange(isCountGiven_, true)) {
      Fail("only one option is allowed to determine the number of processes.");
      return 0;
    }
    return TakeCount(option);
  }

  int TakeCount(std::string_view option) {
    const int count = CountOf(TakeToken(rest_));
    if (count == 0) {
      Fail("must specify a number greater than 0 after the " + std::string(option) + " option");
    }
    return count;
  }

  void ReadProgram() {
    if (AtEnd()) return Fail("no program given");
    result_.solverCommandLine = rest_;
    result_.program = TakeToken(rest_);
    if (!isCountGiven_) result_.hosts.push_back({});
  }

  std::string_view rest_;
  bool isCountGiven_ = false;
  CommandLine result_;
};

}  // namespace

CommandLine ParseCommandLine(std::string_view text) { return Parser(text).Parse(); }

}  // namespace impiexec
