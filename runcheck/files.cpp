#include "runcheck/files.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace qvx::runcheck {
namespace {

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

/// What SearchPath finds for a whole path: ".exe" is added to a name without an extension.
std::string Existing(const std::string& name) {
  char path[MAX_PATH * 4] = {};
  const DWORD length =
      SearchPathA(nullptr, name.c_str(), ".exe", static_cast<DWORD>(sizeof path), path, nullptr);
  if (length == 0 || length >= sizeof path) return {};
  return KindOf(path) == FileKind::File ? path : "";
}

std::wstring Wide(const std::string& ansi) {
  const int length = static_cast<int>(ansi.size());
  std::wstring wide(ansi.size() + 1, L'\0');
  const int units = MultiByteToWideChar(CP_ACP, 0, ansi.c_str(), length, wide.data(),
                                        static_cast<int>(wide.size()));
  wide.resize(units > 0 ? static_cast<std::size_t>(units) : 0);
  return wide;
}

}  // namespace

FileKind KindOf(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return FileKind::Missing;
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? FileKind::Folder : FileKind::File;
}

std::optional<std::string> ReadFileStart(const std::string& path, std::size_t limit) {
  const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
  if (file == nullptr) return std::nullopt;
  std::string bytes;
  char chunk[16384];
  while (bytes.size() < limit) {
    const std::size_t length =
        std::fread(chunk, 1, std::min(sizeof chunk, limit - bytes.size()), file.get());
    if (length == 0) break;
    bytes.append(chunk, length);
  }
  if (std::ferror(file.get()) != 0) return std::nullopt;
  return bytes;
}

std::vector<std::string> NamesMatching(const std::string& pattern) {
  std::vector<std::string> names;
  WIN32_FIND_DATAA entry;
  const HANDLE enumeration = FindFirstFileA(pattern.c_str(), &entry);
  if (enumeration == INVALID_HANDLE_VALUE) return names;
  do {
    const std::string name = entry.cFileName;
    if (name != "." && name != "..") names.push_back(name);
  } while (FindNextFileA(enumeration, &entry) != 0);
  FindClose(enumeration);
  return names;
}

bool MayWriteInto(const std::string& folder) {
  // Asks for the right and opens what is there.
  const HANDLE handle = CreateFileA(folder.c_str(), FILE_ADD_FILE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return GetLastError() != ERROR_ACCESS_DENIED;
  CloseHandle(handle);
  return true;
}

std::string ProgramOf(const std::string& commandLine) {
  // Up to each blank in turn, the whole at last.
  for (std::size_t end = commandLine.find(' ');; end = commandLine.find(' ', end + 1)) {
    std::string program = Existing(commandLine.substr(0, end));
    if (!program.empty()) return program;
    if (end == std::string::npos) return {};
  }
}

std::string OwnFolder() {
  char path[MAX_PATH * 4] = {};
  GetModuleFileNameA(nullptr, path, static_cast<DWORD>(sizeof path - 1));
  const std::string program = path;
  return program.substr(0, program.find_last_of('\\'));
}

std::string AnsiToUtf8(const std::string& ansi) {
  const std::wstring wide = Wide(ansi);
  if (wide.empty()) return {};
  const int units = static_cast<int>(wide.size());
  const int size =
      WideCharToMultiByte(CP_UTF8, 0, wide.c_str(), units, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.c_str(), units, utf8.data(), size, nullptr, nullptr);
  return utf8;
}

}  // namespace qvx::runcheck
