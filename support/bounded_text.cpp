#include "support/bounded_text.h"

#include <cstdio>

#include "support/fault.h"

namespace qvx {

std::size_t FormatTextV(std::span<char> field, const char* name, const char* format,
                        std::va_list arguments) {
  const int result = std::vsnprintf(field.data(), field.size(), format, arguments);
  const auto length = static_cast<std::size_t>(result);
  if (length >= field.size()) FaultTextTooLong(name, field.size(), length);
  return length;
}

void FormatTruncatedV(std::span<char> field, const char* format, std::va_list arguments) {
  std::vsnprintf(field.data(), field.size(), format, arguments);
}

void CopyText(std::span<char> field, const char* name, std::string_view text) {
  if (text.size() >= field.size()) FaultTextTooLong(name, field.size(), text.size());
  *std::copy(text.begin(), text.end(), field.begin()) = '\0';
}

}  // namespace qvx
