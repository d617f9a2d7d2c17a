// The C runtime's part in the simulated machine: printing, the files that the launcher itself
// reads, the end of the process.
#include <cstdarg>
#include <map>

#include "tests/transcripts/run.h"
#include "tests/transcripts/simulated_calls.h"
#include "tests/transcripts/simulated_machine.h"
#include "tests/transcripts/transcript.h"

namespace qvx::test::simulated {
namespace {

std::map<std::FILE*, std::string> names;

std::string Name(std::FILE* file) {
  if (file == nullptr) return "every stream";
  if (file == stdout) return "standard output";
  if (file == stderr) return "standard error";
  const auto name = names.find(file);
  return name == names.end() ? "another stream" : name->second;
}

std::string Formatted(const char* format, std::va_list arguments) {
  std::va_list again;
  va_copy(again, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, again);
  va_end(again);
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  std::vsnprintf(text.data(), text.size(), format, arguments);
  text.pop_back();
  return text;
}

int Print(std::FILE* file, const std::string& text) {
  Record((file == stdout ? "print " : "print to " + Name(file) + " ") + Quoted(text));
  return static_cast<int>(text.size());
}

}  // namespace

int vprintf(const char* format, std::va_list arguments) {
  const Observation observation("printf");
  return Print(stdout, Formatted(format, arguments));
}

int fprintf(std::FILE* file, const char* format, ...) {
  const Observation observation("printf");
  std::va_list arguments;
  va_start(arguments, format);
  const int length = Print(file, Formatted(format, arguments));
  va_end(arguments);
  return length;
}

int fputs(const char* text, std::FILE* file) {
  const Observation observation("printf");
  return Print(file, text);
}

std::size_t fwrite(const void* bytes, std::size_t size, std::size_t count, std::FILE* file) {
  const Observation observation("printf");
  Print(file, {static_cast<const char*>(bytes), size * count});
  return count;
}

int fflush(std::FILE* file) {
  const Observation observation("fflush");
  Record(file == stdout ? "flush" : "flush " + Name(file));
  return 0;
}

std::FILE* fopen(const char* path, const char* mode) {
  const Observation observation("fopen");
  const std::string line = "fopen(" + Quoted(path) + ", " + Quoted(mode) + ") = ";
  const auto& files = Machine().scenario.files;
  std::FILE* file = nullptr;
  if (files.contains(path)) file = SystemFopen()(RealPath(path).c_str(), mode);
  if (file == nullptr) {
    Record(line + "none");
    return nullptr;
  }
  Machine().readFailed = false;
  const std::string whole = path;
  names[file] = whole.substr(whole.rfind('\\') + 1);
  Record(line + names[file]);
  return file;
}

char* fgets(char* text, int size, std::FILE* file) {
  const OwnMemory ownMemory;
  const std::string stream = Name(file) + ", " + std::to_string(size) + " characters at a time";
  if (++Machine().linesRead == Machine().scenario.failingRead) {
    Machine().readFailed = true;
    CountLineRead(stream, "an error");
    return nullptr;
  }
  char* line = SystemFgets()(text, size, file);
  CountLineRead(stream, line == nullptr ? "its end" : "");
  return line;
}

int ferror(std::FILE*) { return Machine().readFailed; }

int fclose(std::FILE* file) {
  const Observation observation("fclose");
  Record("fclose(" + Name(file) + ") = 0");
  names.erase(file);
  return SystemFclose()(file);
}

// Declared like the system's; to Clang that is a part of its type.
[[gnu::nothrow]] void exit(int status) {
  Record("exit(" + std::to_string(status) + ")");
  StopSimulating();
  EndRun();
  std::exit(status);
}

}  // namespace qvx::test::simulated
