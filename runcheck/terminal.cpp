#include "runcheck/terminal.h"

#include <windows.h>

#include <cstdlib>

namespace qvx::runcheck {
namespace {

HANDLE Output() { return GetStdHandle(STD_OUTPUT_HANDLE); }

void WriteBytes(const std::string& bytes) {
  for (std::size_t at = 0; at < bytes.size();) {
    DWORD written = 0;
    if (WriteFile(Output(), bytes.data() + at, static_cast<DWORD>(bytes.size() - at), &written,
                  nullptr) == 0 ||
        written == 0) {
      return;
    }
    at += written;
  }
}

void WriteCharacters(const std::string& text, UINT codePage) {
  if (text.empty()) return;
  std::wstring wide(text.size() + 1, L'\0');
  const int units = MultiByteToWideChar(codePage, 0, text.data(), static_cast<int>(text.size()),
                                        wide.data(), static_cast<int>(wide.size()));
  DWORD written = 0;
  WriteConsoleW(Output(), wide.data(), static_cast<DWORD>(units), &written, nullptr);
}

}  // namespace

Terminal::Terminal() {
  DWORD mode = 0;
  isTerminal_ = GetConsoleMode(Output(), &mode) != 0;
  if (!isTerminal_) return;
  mode_ = mode;
  CONSOLE_SCREEN_BUFFER_INFO info = {};
  if (GetConsoleScreenBufferInfo(Output(), &info) != 0) {
    // A line that fills the last column would wrap.
    style_.width = static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left);
  }
  const char* noColour = std::getenv("NO_COLOR");
  if (noColour != nullptr && noColour[0] != '\0') return;
  changedMode_ = (mode & ENABLE_VIRTUAL_TERMINAL_PROCESSING) == 0;
  style_.colours =
      !changedMode_ || SetConsoleMode(Output(), mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

Terminal::~Terminal() {
  if (changedMode_) SetConsoleMode(Output(), mode_);
}

void Terminal::Write(const std::string& text) const {
  if (isTerminal_) {
    WriteCharacters(text, CP_ACP);
  } else {
    WriteBytes(text);
  }
}

void Terminal::WriteUtf8(const std::string& text) const {
  if (isTerminal_) {
    WriteCharacters(text, CP_UTF8);
  } else {
    WriteBytes(text);
  }
}

}  // namespace qvx::runcheck
