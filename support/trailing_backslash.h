// A folder's trailing separator, in a text of the system's ANSI code page. In a double-byte code
// page the byte of a backslash can be the second half of a letter: that one is no separator.
#pragma once

namespace qvx {

/// Removes the last character when it is a backslash; only one.
void RemoveTrailingBackslash(char* text);

/// True when `byte` is the first of the two bytes of a character, in the code page of this process.
bool IsLeadByte(char byte);

}  // namespace qvx
