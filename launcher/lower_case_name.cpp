#include "launcher/lower_case_name.h"

#include <cstddef>
#include <cwctype>

namespace qvx {

void LowerCaseName(LauncherContext& context, std::string& text) {
  std::wstring wide(text.size() + 1, L'\0');
  if (context.unicodeTool.AnsiToUtf16(text.c_str(), wide.data(), static_cast<int>(wide.size())) <
      0) {
    return;
  }
  for (wchar_t& unit : wide)
    unit = static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(unit)));
  // A lower-case letter can take more bytes than its capital, never more than three a unit.
  constexpr std::size_t kMostBytesAUnit = 3;
  std::string lower(wide.size() * kMostBytesAUnit, '\0');
  if (context.unicodeTool.Utf16ToAnsi(wide.c_str(), lower.data(), static_cast<int>(lower.size())) <
      0) {
    return;
  }
  lower.resize(lower.find('\0'));
  text = lower;
}

}  // namespace qvx
