// Quotes a text for a command line so that the C runtime of the started program parses it back to
// exactly that text. Holds for all arguments but the first, which the runtime parses without
// backslash escapes.
#pragma once

#include <string>
#include <string_view>

namespace replacements {

inline std::string QuotedArgument(std::string_view text) {
  std::string quoted = "\"";
  std::size_t backslashes = 0;
  for (const char character : text) {
    // Backslashes are literal unless a quote follows them; then each one has to be doubled.
    if (character == '"') quoted.append(backslashes + 1, '\\');
    backslashes = character == '\\' ? backslashes + 1 : 0;
    quoted += character;
  }
  return quoted.append(backslashes, '\\') + '"';
}

}  // namespace replacements
