#include "tests/transcripts/transcript.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>
#include <new>
#include <utility>
#include <vector>

#include "launcher/process_wide_values.h"
#include "tests/transcripts/observed_memory.h"
#include "tests/transcripts/simulated_machine.h"

namespace qvx::test {
namespace {

struct State {
  std::string text;
  int cancelFlag = 0;
  std::uint32_t childProcessIdentifier = 0;
  bool outOfMemoryHandler = false;
  std::string readStream;  ///< lines of it were read in a row; empty for none
  int linesRead = 0;
  std::string readEnd;
  std::vector<std::pair<char*, std::size_t>> lent;
};

State state;

void Append(const std::string& line) { state.text += line + "\n"; }

template <typename Unit>
std::string Word(Unit unit) {
  const auto code = static_cast<unsigned>(static_cast<std::make_unsigned_t<Unit>>(unit));
  if (code == '\n') return "<LF>";
  if (code == '\r') return "<CR>";
  if (code == '\t') return "<TAB>";
  if (code >= ' ' && code <= '~') return std::string(1, static_cast<char>(code));
  char word[16];
  std::snprintf(word, sizeof word, sizeof(Unit) == 1 ? "<%02X>" : "<U+%04X>", code);
  return word;
}

template <typename Unit>
std::string QuotedUnits(std::basic_string_view<Unit> text) {
  constexpr std::size_t kLongRun = 32;
  std::string quoted = "\"";
  for (std::size_t i = 0; i < text.size();) {
    std::size_t end = i;
    while (end < text.size() && text[end] == text[i]) ++end;
    if (end - i > kLongRun) {
      quoted += Word(text[i]) + "<x" + std::to_string(end - i) + ">";
    } else {
      for (std::size_t k = i; k < end; ++k) quoted += Word(text[k]);
    }
    i = end;
  }
  quoted += '"';
  for (std::size_t at = 0; (at = quoted.find(kSite, at)) != std::string::npos;) {
    quoted.replace(at, kSite.size(), "<site>");
  }
  return quoted;
}

/// What the launcher did since its last call that only shows in its memory.
void RecordChanges() {
  if (!state.readStream.empty()) {
    Append("lines read from " + state.readStream + ": " + std::to_string(state.linesRead) +
           (state.readEnd.empty() ? "" : ", then " + state.readEnd));
    state.readStream.clear();
  }
  const int flag = cancelFlag;
  if (flag != state.cancelFlag) Append("* cancel flag: " + std::to_string(flag));
  state.cancelFlag = flag;
  const std::uint32_t child = childProcessIdentifier;
  if (child != state.childProcessIdentifier) {
    Append("* child process identifier: " + std::to_string(child));
  }
  state.childProcessIdentifier = child;
  const bool handler = std::get_new_handler() != nullptr;
  if (handler != state.outOfMemoryHandler) {
    Append(std::string("* out-of-memory handler: ") + (handler ? "installed" : "none"));
  }
  state.outOfMemoryHandler = handler;
  for (const auto& [text, size] : state.lent) std::memset(text, '#', size);
  state.lent.clear();
}

}  // namespace

std::string Quoted(std::string_view text) { return QuotedUnits(text); }
std::string Quoted(std::wstring_view text) { return QuotedUnits(text); }

std::string QuotedOr(const char* text, const char* word) {
  return text == nullptr ? word : Quoted(text);
}

std::string Truth(int value) {
  if (value == 0) return "FALSE";
  return value == 1 ? "TRUE" : std::to_string(value);
}

std::string ErrorName(DWORD error) {
  static const std::map<DWORD, std::string> names = {
      {ERROR_SUCCESS, "ERROR_SUCCESS"},
      {ERROR_FILE_NOT_FOUND, "ERROR_FILE_NOT_FOUND"},
      {ERROR_PATH_NOT_FOUND, "ERROR_PATH_NOT_FOUND"},
      {ERROR_ACCESS_DENIED, "ERROR_ACCESS_DENIED"},
      {ERROR_INVALID_HANDLE, "ERROR_INVALID_HANDLE"},
      {ERROR_NO_MORE_FILES, "ERROR_NO_MORE_FILES"},
      {ERROR_INVALID_PARAMETER, "ERROR_INVALID_PARAMETER"},
      {ERROR_BROKEN_PIPE, "ERROR_BROKEN_PIPE"},
      {ERROR_DISK_FULL, "ERROR_DISK_FULL"},
      {ERROR_ALREADY_EXISTS, "ERROR_ALREADY_EXISTS"},
      {ERROR_MORE_DATA, "ERROR_MORE_DATA"},
      {ERROR_NO_SYSTEM_RESOURCES, "ERROR_NO_SYSTEM_RESOURCES"},
      {kErrorOfAnotherCall, "the error of a later call"},
  };
  const auto name = names.find(error);
  return name == names.end() ? std::to_string(error) : name->second;
}

void StartTranscript() {
  state = {};
  state.cancelFlag = cancelFlag;
  state.childProcessIdentifier = childProcessIdentifier;
}

std::string TakeTranscript() {
  RecordChanges();
  return std::exchange(state.text, {});
}

void Record(const std::string& line) { Append(line); }

Observation::Observation(const char* function) : function_(function) {
  RecordChanges();
  fails_ = Machine().BeginCall(function_);
}

Observation::~Observation() { Machine().EndCall(function_); }

void CountLineRead(const std::string& stream, const std::string& end) {
  if (stream != state.readStream) {
    RecordChanges();
    state.readStream = stream;
    state.linesRead = 0;
    state.readEnd.clear();
  }
  if (end.empty()) {
    ++state.linesRead;
  } else {
    state.readEnd = end;
  }
}

void LendText(void* text, std::size_t length, std::size_t unit) {
  state.lent.emplace_back(static_cast<char*>(text), length * unit);
}

}  // namespace qvx::test
