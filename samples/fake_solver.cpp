// QuorvexFakeSolver.exe stands in for a solver. It does what a script says: the file <stem>.script
// beside it or else a variable of its environment, QUORVEX_FAKE_SOLVER_<STEM> or
// QUORVEX_FAKE_SOLVER. Copies have stems of their own. Commands are separated by `;`; see
// kCommands. Without a script it plays a short, well-behaved run.
#include <windows.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

namespace {

constexpr UINT kNoConsole = 97;
constexpr UINT kUnknownCommand = 98;
constexpr UINT kAwaitedInVain = 99;
constexpr DWORD kPollMilliseconds = 10;
constexpr ULONGLONG kAwaitMilliseconds = 60'000;
constexpr DWORD kProgressMilliseconds = 50;
constexpr DWORD kOutliveMilliseconds = 300;

void Write(DWORD stream, std::string_view bytes) {
  DWORD written = 0;
  WriteFile(GetStdHandle(stream), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
            nullptr);
}

void WriteLine(DWORD stream, std::string_view text) { Write(stream, std::string(text) + "\r\n"); }

void Print(std::string_view text) { WriteLine(STD_OUTPUT_HANDLE, text); }

const char* Variable(std::string_view name) { return std::getenv(std::string(name).c_str()); }

std::string_view Trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(' ');
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

/// Cuts `text` at `separator`: returns what is before it and leaves what is after it.
std::string_view TakeUntil(char separator, std::string_view& text) {
  const std::size_t length = std::min(text.find(separator), text.size());
  const std::string_view taken = text.substr(0, length);
  text.remove_prefix(std::min(length + 1, text.size()));
  text = Trimmed(text);
  return Trimmed(taken);
}

long long Number(std::string_view text, int base = 10) {
  long long number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number, base);
  return number;
}

void PrintCommandLine(std::string_view /*nothing*/) { Print(GetCommandLineA()); }

/// What follows the program, whose path may hold blanks without being quoted.
std::string_view OwnArguments() {
  const std::string_view line = GetCommandLineA();
  return line.substr(std::min(line.find(" -"), line.size()));
}

void PrintArguments(std::string_view /*nothing*/) {
  for (int i = 1; i < __argc; ++i) Print("argument " + std::to_string(i) + ": " + __argv[i]);
}

void PrintError(std::string_view text) { WriteLine(STD_ERROR_HANDLE, text); }

void WriteRaw(std::string_view hex) {
  std::string bytes;
  for (; hex.size() >= 2; hex.remove_prefix(2)) {
    bytes += static_cast<char>(Number(hex.substr(0, 2), 16));
  }
  Write(STD_OUTPUT_HANDLE, bytes);
}

void Fill(std::string_view sizes) {
  constexpr std::string_view kPattern =
      "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz\r\n";
  const auto total = static_cast<std::size_t>(Number(TakeUntil(' ', sizes)));
  const auto chunk = static_cast<std::size_t>(std::max(Number(sizes), 1LL));
  std::string bytes;
  while (bytes.size() < total) bytes += kPattern;
  bytes.resize(total);
  for (std::size_t at = 0; at < total; at += chunk) {
    Write(STD_OUTPUT_HANDLE, std::string_view(bytes).substr(at, chunk));
  }
}

void CountInput(std::string_view /*nothing*/) {
  std::array<char, 4096> buffer;
  DWORD length = 0;
  std::size_t total = 0;
  while (ReadFile(GetStdHandle(STD_INPUT_HANDLE), buffer.data(), buffer.size(), &length, nullptr) !=
             0 &&
         length > 0) {
    total += length;
  }
  Print("stdin: " + std::to_string(total) + " bytes");
}

void PrintFolder(std::string_view /*nothing*/) {
  std::array<char, 4096> folder{};
  GetCurrentDirectoryA(folder.size(), folder.data());
  Print(folder.data());
}

void PrintVariable(std::string_view name) {
  const char* const value = Variable(name);
  Print(std::string(name) + (value != nullptr ? '=' + std::string(value) : " is not set"));
}

/// The file appears with its content: whoever awaits it may read it at once.
void Touch(std::string_view path) {
  const std::filesystem::path unfinished(std::string(path) + ".new");
  std::ofstream(unfinished) << GetCurrentProcessId();
  std::filesystem::rename(unfinished, path);
}

void Await(std::string_view path) {
  const ULONGLONG end = GetTickCount64() + kAwaitMilliseconds;
  while (!std::filesystem::exists(path)) {
    if (GetTickCount64() >= end) ExitProcess(kAwaitedInVain);
    Sleep(kPollMilliseconds);
  }
}

void Outlive(std::string_view path) {
  Await(path);
  DWORD identifier = 0;
  std::ifstream(std::filesystem::path(path)) >> identifier;
  if (const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, identifier)) {
    WaitForSingleObject(process, INFINITE);
    CloseHandle(process);
  }
  // Whoever else waits for that end has to notice it first.
  Sleep(kOutliveMilliseconds);
}

void SleepFor(std::string_view milliseconds) { Sleep(static_cast<DWORD>(Number(milliseconds))); }

/// On a pipe this waits until the reader has taken everything.
void Flush(std::string_view /*nothing*/) { FlushFileBuffers(GetStdHandle(STD_OUTPUT_HANDLE)); }

void CloseOutput(std::string_view /*nothing*/) {
  const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
  const HANDLE error = GetStdHandle(STD_ERROR_HANDLE);
  CloseHandle(output);
  if (error != output) CloseHandle(error);
  SetStdHandle(STD_OUTPUT_HANDLE, nullptr);
  SetStdHandle(STD_ERROR_HANDLE, nullptr);
}

/// A real one, as if a person pressed it in the launcher's window. This process is left out.
void PressCtrlC(std::string_view /*nothing*/) {
  FreeConsole();
  if (AttachConsole(ATTACH_PARENT_PROCESS) == 0) ExitProcess(kNoConsole);
  SetConsoleCtrlHandler(nullptr, TRUE);
  GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0);
}

void Exit(std::string_view code) { ExitProcess(static_cast<UINT>(Number(code))); }

void RunForRank(std::string_view rankAndCommand);

struct Command {
  std::string_view name;
  void (*run)(std::string_view);
};

constexpr Command kCommands[] = {
    {"command-line", PrintCommandLine},  // the raw command line
    {"args", PrintArguments},            // the arguments as the C runtime parsed them
    {"print", Print},                    // TEXT
    {"error", PrintError},               // TEXT, to standard error
    {"raw", WriteRaw},                   // HEX
    {"fill", Fill},                      // TOTAL CHUNK: so many bytes, so many at a time
    {"stdin", CountInput},               // reads standard input to its end
    {"folder", PrintFolder},             // the current folder
    {"variable", PrintVariable},         // NAME
    {"touch", Touch},                    // PATH: makes a file that holds the process id
    {"await", Await},                    // PATH: waits until the file is there
    {"outlive", Outlive},                // PATH: waits for the end of the process that made it
    {"sleep", SleepFor},                 // MILLISECONDS
    {"flush", Flush},                    // waits until all output has been read
    {"close", CloseOutput},              // closes standard output and error
    {"rank", RunForRank},                // RANK COMMAND: only in the process of that rank
    {"ctrl-c", PressCtrlC},              // sends Ctrl-C to the console of the process's parent
    {"exit", Exit},                      // CODE
};

void RunCommand(std::string_view command) {
  const std::string_view name = TakeUntil(' ', command);
  const auto* const found = std::ranges::find(kCommands, name, &Command::name);
  if (found == std::end(kCommands)) {
    PrintError("unknown command: " + std::string(name));
    ExitProcess(kUnknownCommand);
  }
  found->run(command);
}

void RunForRank(std::string_view rankAndCommand) {
  const std::string_view wanted = TakeUntil(' ', rankAndCommand);
  const char* const rank = Variable("PMI_RANK");
  if (rank != nullptr && rank == wanted) RunCommand(rankAndCommand);
}

void RunScript(std::string_view script) {
  while (!script.empty()) {
    const std::string_view command = TakeUntil(';', script);
    if (!command.empty()) RunCommand(command);
  }
}

std::filesystem::path OwnPath() {
  std::array<char, 4096> path{};
  GetModuleFileNameA(nullptr, path.data(), path.size());
  std::string own = path.data();
  // Wine names a file on a share without the backslashes in front.
  if (own.starts_with("UNC\\")) own.replace(0, 3, "\\");
  return own;
}

std::optional<std::string> FindScript() {
  const std::filesystem::path self = OwnPath();
  if (std::ifstream file(std::filesystem::path(self).replace_extension("script"), std::ios::binary);
      file.is_open()) {
    return std::string(std::istreambuf_iterator<char>(file), {});
  }
  std::string name = "QUORVEX_FAKE_SOLVER_" + self.stem().string();
  for (char& character : name) {
    character = static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
  }
  for (const std::string& variable : {name, std::string("QUORVEX_FAKE_SOLVER")}) {
    if (const char* const script = Variable(variable)) return script;
  }
  return std::nullopt;
}

/// Each line of a parallel run has its process's rank in front.
void PlayRun() {
  std::string rank;
  if (const char* const number = Variable("PMI_RANK")) rank = std::string("[") + number + "] ";
  if (rank.empty() || rank == "[0] ") Print(rank + "given:" + std::string(OwnArguments()));
  if (!rank.empty()) {
    const auto variable = [](const char* name) {
      const char* const value = Variable(name);
      return std::string(value != nullptr ? value : "?");
    };
    Print(rank + "one of " + variable("PMI_SIZE") + " processes, on " + variable("PMI_HOST"));
  }
  for (const int percent : {30, 60, 100}) {
    Print(rank + "progress " + std::to_string(percent) + " %");
    Flush({});
    Sleep(kProgressMilliseconds);
  }
}

}  // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): a test sees it as a crash
int main() {
  if (const std::optional<std::string> script = FindScript()) {
    RunScript(*script);
  } else {
    PlayRun();
  }
  return 0;
}
