// The bounded formatter: fills a fixed-size text field and learns the width from the field itself.
// A text that does not fit is a fault; only the functions named Truncated cut it. Fields always
// end with a zero. The arguments must not lie in the field that is filled.
#pragma once

#include <algorithm>
#include <cstdarg>
#include <cstddef>
#include <span>
#include <string_view>

#include "support/printf_like.h"

namespace qvx {

/// `name` is the field's name in the fault's message. Returns the text's length.
std::size_t FormatTextV(std::span<char> field, const char* name, const char* format,
                        std::va_list arguments) QVX_PRINTF_LIKE(3, 0);

template <std::size_t Width>
QVX_PRINTF_LIKE(3, 4)
std::size_t FormatText(char (&field)[Width], const char* name, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const std::size_t length = FormatTextV(field, name, format, arguments);
  va_end(arguments);
  return length;
}

void CopyText(std::span<char> field, const char* name, std::string_view text);

/// `FormatTextV` without the fault.
void FormatTruncatedV(std::span<char> field, const char* format, std::va_list arguments)
    QVX_PRINTF_LIKE(2, 0);

template <std::size_t Width>
QVX_PRINTF_LIKE(2, 3)
void FormatTruncated(char (&field)[Width], const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  FormatTruncatedV(field, format, arguments);
  va_end(arguments);
}

template <std::size_t Width>
void CopyTruncated(char (&field)[Width], std::string_view text) {
  const std::size_t length = std::min(text.size(), Width - 1);
  *std::copy_n(text.data(), length, field) = '\0';
}

}  // namespace qvx
