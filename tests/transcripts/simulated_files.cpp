// Files and the console of the simulated machine.
#include <algorithm>
#include <cstring>

#include "tests/transcripts/flags.h"
#include "tests/transcripts/simulated_calls.h"
#include "tests/transcripts/simulated_machine.h"
#include "tests/transcripts/transcript.h"

namespace qvx::test::simulated {
namespace {

const auto kEnumeration = reinterpret_cast<HANDLE>(0x61000004);
const auto kStandardOutput = reinterpret_cast<HANDLE>(0x61000008);

std::string enumeratedPattern;
std::size_t nextEntry = 0;

/// "FOLDER\STEM*.txt" as the system's wildcards take it.
bool Matches(const std::string& path, const std::string& pattern) {
  const std::size_t star = pattern.find('*');
  if (star == std::string::npos) return path == pattern;
  const std::string tail = pattern.substr(star + 1);
  return path.size() + 1 >= pattern.size() && path.compare(0, star, pattern, 0, star) == 0 &&
         path.ends_with(tail) && path.find('\\', star) == std::string::npos;
}

/// The next matching entry, put into `found`; false behind the last.
bool NextEntry(WIN32_FIND_DATAA& found, std::string& shown) {
  for (; nextEntry < Machine().scenario.oldLogs.size(); ++nextEntry) {
    const FolderEntry& entry = Machine().scenario.oldLogs[nextEntry];
    if (!Matches(entry.path, enumeratedPattern)) continue;
    ++nextEntry;
    const std::string name = entry.path.substr(entry.path.rfind('\\') + 1);
    found = {};
    found.dwFileAttributes = entry.attributes;
    name.copy(found.cFileName, sizeof found.cFileName - 1);
    const bool isFolder = (entry.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    shown = std::string(isFolder ? "folder " : "file ") + Quoted(name);
    constexpr DWORD kUsual = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_ARCHIVE;
    const DWORD rare = entry.attributes & ~kUsual;
    if (rare != 0) {
      shown += ", " + Flags(rare, {{FILE_ATTRIBUTE_READONLY, "FILE_ATTRIBUTE_READONLY"},
                                   {FILE_ATTRIBUTE_HIDDEN, "FILE_ATTRIBUTE_HIDDEN"},
                                   {FILE_ATTRIBUTE_SYSTEM, "FILE_ATTRIBUTE_SYSTEM"},
                                   {FILE_ATTRIBUTE_REPARSE_POINT, "FILE_ATTRIBUTE_REPARSE_POINT"}});
    }
    return true;
  }
  return false;
}

/// The run's only other open file is the log.
std::string FileRole(HANDLE file) {
  if (file == kStandardOutput) return "standard output";
  return Machine().RoleOf(file);
}

/// Nothing can be written to what is not; says so by the last-error code.
bool TakesBytes(HANDLE file) {
  const OpenHandle* handle = Machine().Find(file);
  if (file == kStandardOutput || (handle != nullptr && handle->open)) return true;
  Machine().lastError = ERROR_INVALID_HANDLE;
  return false;
}

}  // namespace

HANDLE WINAPI FindFirstFileA(LPCSTR pattern, LPWIN32_FIND_DATAA found) {
  const Observation observation("FindFirstFileA");
  enumeratedPattern = pattern;
  nextEntry = 0;
  const std::string line = "FindFirstFileA(" + Quoted(pattern) + ") = ";
  std::string shown;
  if (observation.Fails() || !NextEntry(*found, shown)) {
    if (!observation.Fails()) Machine().lastError = ERROR_FILE_NOT_FOUND;
    Record(line + "INVALID_HANDLE_VALUE, " + ErrorName(Machine().lastError));
    return INVALID_HANDLE_VALUE;
  }
  Record(line + "enumeration, " + shown);
  return kEnumeration;
}

BOOL WINAPI FindNextFileA(HANDLE enumeration, LPWIN32_FIND_DATAA found) {
  const Observation observation("FindNextFileA");
  const std::string line =
      std::string("FindNextFileA(") + (enumeration == kEnumeration ? "enumeration" : "?") + ") = ";
  std::string shown;
  if (observation.Fails() || !NextEntry(*found, shown)) {
    if (!observation.Fails()) Machine().lastError = ERROR_NO_MORE_FILES;
    return Answered(line, false);
  }
  return Answered(line, true, ", " + shown);
}

BOOL WINAPI FindClose(HANDLE enumeration) {
  const Observation observation("FindClose");
  return Answered(
      std::string("FindClose(") + (enumeration == kEnumeration ? "enumeration" : "?") + ") = ",
      !observation.Fails());
}

BOOL WINAPI DeleteFileA(LPCSTR path) {
  const Observation observation("DeleteFileA");
  std::vector<FolderEntry>& logs = Machine().logs;
  const auto entry = std::ranges::find(logs, path, &FolderEntry::path);
  constexpr DWORD kProtecting = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY;
  const bool there = entry != logs.end();
  const bool succeeds = there && (entry->attributes & kProtecting) == 0 && !observation.Fails();
  if (succeeds) {
    logs.erase(entry);
  } else if (!observation.Fails()) {
    Machine().lastError = there ? ERROR_ACCESS_DENIED : ERROR_FILE_NOT_FOUND;
  }
  return Answered("DeleteFileA(" + Quoted(path) + ") = ", succeeds);
}

HANDLE WINAPI CreateFileA(LPCSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES attributes,
                          DWORD disposition, DWORD flags, HANDLE templateFile) {
  const Observation observation("CreateFileA");
  const std::string line =
      "CreateFileA(" + Quoted(path) + ", " +
      Flags(access, {{GENERIC_WRITE, "GENERIC_WRITE"}, {GENERIC_READ, "GENERIC_READ"}}) + ", " +
      Flags(share, {{FILE_SHARE_READ, "FILE_SHARE_READ"},
                    {FILE_SHARE_WRITE, "FILE_SHARE_WRITE"},
                    {FILE_SHARE_DELETE, "FILE_SHARE_DELETE"}}) +
      ", attributes " + (attributes == nullptr ? "none" : "given") + ", " +
      Choice(disposition, {{CREATE_ALWAYS, "CREATE_ALWAYS"},
                           {CREATE_NEW, "CREATE_NEW"},
                           {OPEN_ALWAYS, "OPEN_ALWAYS"},
                           {OPEN_EXISTING, "OPEN_EXISTING"}}) +
      ", " + Flags(flags, {{FILE_ATTRIBUTE_NORMAL, "FILE_ATTRIBUTE_NORMAL"}}) + ", template " +
      Machine().RoleOf(templateFile) + ") = ";
  if (observation.Fails()) {
    Record(line + "INVALID_HANDLE_VALUE, " + ErrorName(Machine().lastError));
    return INVALID_HANDLE_VALUE;
  }
  const int call = Machine().CallsOf("CreateFileA");
  const std::string role = "log" + (call > 1 ? " " + std::to_string(call) : std::string());
  // The code that the system leaves when CREATE_ALWAYS meets a file, say.
  Record(line + role);
  return Machine().Open({.role = role, .inheritable = attributes != nullptr});
}

HANDLE WINAPI GetStdHandle(DWORD which) {
  const Observation observation("GetStdHandle");
  HANDLE handle = which == STD_OUTPUT_HANDLE ? kStandardOutput : nullptr;
  // A process without standard handles gets null, and no error.
  if (observation.Fails()) {
    handle = Machine().lastError == ERROR_SUCCESS ? nullptr : INVALID_HANDLE_VALUE;
  }
  Record("GetStdHandle(" +
         Choice(which, {{STD_OUTPUT_HANDLE, "STD_OUTPUT_HANDLE"},
                        {STD_ERROR_HANDLE, "STD_ERROR_HANDLE"},
                        {STD_INPUT_HANDLE, "STD_INPUT_HANDLE"}}) +
         ") = " + FileRole(handle));
  return handle;
}

BOOL WINAPI WriteFile(HANDLE file, LPCVOID bytes, DWORD size, LPDWORD written,
                      LPOVERLAPPED overlapped) {
  const Observation observation("WriteFile");
  const std::string line = "WriteFile(" + FileRole(file) + ", " + std::to_string(size) + " bytes " +
                           Quoted(std::string_view(static_cast<const char*>(bytes), size)) +
                           (overlapped == nullptr ? "" : ", overlapped") + ") = ";
  *written = 0;
  if (observation.Fails() || !TakesBytes(file)) return Answered(line, false);
  const auto& shortWrites = Machine().scenario.shortWrites;
  const auto taken = shortWrites.find({"WriteFile", Machine().CallsOf("WriteFile")});
  *written = taken == shortWrites.end() ? size : std::min(size, taken->second);
  return Answered(line, true,
                  ", " + (*written == size ? "all" : std::to_string(*written)) + " written");
}

BOOL WINAPI FlushFileBuffers(HANDLE file) {
  const Observation observation("FlushFileBuffers");
  const bool succeeds = !observation.Fails() && TakesBytes(file);
  return Answered("FlushFileBuffers(" + FileRole(file) + ") = ", succeeds);
}

DWORD WINAPI GetFileType(HANDLE file) {
  const Observation observation("GetFileType");
  const DWORD console = Machine().scenario.isAtConsole ? FILE_TYPE_CHAR : FILE_TYPE_PIPE;
  const DWORD type = file == kStandardOutput ? console : FILE_TYPE_DISK;
  Record("GetFileType(" + FileRole(file) + ") = " +
         Choice(type, {{FILE_TYPE_CHAR, "FILE_TYPE_CHAR"},
                       {FILE_TYPE_DISK, "FILE_TYPE_DISK"},
                       {FILE_TYPE_PIPE, "FILE_TYPE_PIPE"}}));
  return type;
}

}  // namespace qvx::test::simulated
