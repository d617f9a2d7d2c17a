// Reads one section of a run's CMX file: a text file of sections, each between a line "<NAME>" and
// a line "</NAME>", with one `key=value` setting a line. The file is never loaded as a whole; each
// section's reader makes a pass of its own. A key or value of more than 259 characters inside the
// section is a fault.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>

namespace qvx {

/// The width of a key and of a value, terminating zero included. What a file can hold, whatever the
/// fields that the values go to.
constexpr std::size_t kCmxTextWidth = 260;

/// A line of a section, split at its first "=": spaces removed from the key, leading spaces from
/// the value. A line without "=" has the value "NULL".
struct CmxSetting {
  char key[kCmxTextWidth];
  char value[kCmxTextWidth];
};

/// Splits `line` at the first `separator`, which neither part keeps. Without one, the key is the
/// whole line and the value "NULL".
void SplitKeyValue(const char* line, char separator, char (&key)[kCmxTextWidth],
                   char (&value)[kCmxTextWidth]);

/// Only the space character (32) counts as a space.
void RemoveAllSpaces(char* text);
void RemoveLeadingSpaces(char* text);

/// Calls `onSetting` for every line of every section called `name`, tag lines included. A last line
/// that ends in a line feed is handed over twice. Returns false, with a message on standard output,
/// when the file cannot be opened. A read error counts as the end of the file.
bool ReadCmxSection(const char* path, const std::string& name,
                    const std::function<void(const CmxSetting&)>& onSetting);

/// A text field of a settings record and its key in the file.
struct CmxTextField {
  const char* key;
  std::span<char> text;
};

/// Copies the value into the field that the key names, if one does. A value too long for its field
/// is a fault.
void StoreTextField(std::span<const CmxTextField> fields, const CmxSetting& setting);

}  // namespace qvx
