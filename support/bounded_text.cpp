// mingw-w64's own vsnprintf is far slower than the system C runtime's, and every chunk of a
// solver's console passes through here. This has to come before the first C++ header, which would
// choose the slow one.
#if defined(__MINGW32__)
#define __USE_MINGW_ANSI_STDIO 0  // NOLINT(bugprone-reserved-identifier,cert-dcl*): the library's
#endif
#include <stdio.h>  // NOLINT(modernize-deprecated-headers): <cstdio> is such a C++ header

#include "support/bounded_text.h"

#include <stdio.h>

#include "support/fault.h"

namespace qvx {

std::size_t FormatTextV(std::span<char> field, const char* name, const char* format,
                        std::va_list arguments) {
  const int result = vsnprintf(field.data(), field.size(), format, arguments);
  const auto length = static_cast<std::size_t>(result);
  if (length >= field.size()) FaultTextTooLong(name, field.size(), length);
  return length;
}

void FormatTruncatedV(std::span<char> field, const char* format, std::va_list arguments) {
  vsnprintf(field.data(), field.size(), format, arguments);
}

void CopyText(std::span<char> field, const char* name, std::string_view text) {
  if (text.size() >= field.size()) FaultTextTooLong(name, field.size(), text.size());
  *std::copy(text.begin(), text.end(), field.begin()) = '\0';
}

}  // namespace qvx
