#include <windows.h>

#include <algorithm>
#include <string>

#include "execution/old_logs.h"
#include "runcheck/places.h"
#include "runcheck/similar_name.h"

namespace qvx::runcheck {
namespace {

/// Named as the launcher names its logs.
bool IsLogName(const std::string& name, const std::string& stem) {
  constexpr std::string_view kTime = "_0000-00-00_00-00-00.txt";
  if (name.size() != stem.size() + kTime.size()) return false;
  if (AsciiLower(name.substr(0, stem.size())) != AsciiLower(stem)) return false;
  for (std::size_t i = 0; i < kTime.size(); ++i) {
    const char c = name[stem.size() + i];
    const bool isDigit = c >= '0' && c <= '9';
    if (kTime[i] == '0' ? !isDigit : AsciiLower({&c, 1}) != std::string(1, kTime[i])) return false;
  }
  return true;
}

}  // namespace

void CheckOldLogs(Prediction& prediction, Diagnostics& found) {
  for (Pass& pass : prediction.passes) {
    const std::string& pattern = pass.log.cleanUpPattern;
    const std::string stem =
        pattern.substr(pass.logFolder.size() + 1, pattern.size() - pass.logFolder.size() - 1 - 5);
    ForEachOldLog(*prediction.context, pattern, [&](const char* path) {
      // Another folder's names are deleted here: only what is here really goes.
      const DWORD attributes = GetFileAttributesA(path);
      if (attributes == INVALID_FILE_ATTRIBUTES) return;
      if ((attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0) return;
      pass.deletes.emplace_back(path);
      const std::string name = LastPart(pass.deletes.back());
      if (IsLogName(name, stem)) return;
      found.push_back(Diagnostic("deletes-other-file",
                                 name + " is no log of the launcher and would be deleted"));
    });
    std::ranges::sort(pass.deletes);
  }
}

}  // namespace qvx::runcheck
