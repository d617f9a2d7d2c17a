// Names for the numbers that the launcher hands to Windows. What has no name is shown in
// hexadecimal, so that no bit is lost.
#pragma once

#include <windows.h>

#include <cstdio>
#include <initializer_list>
#include <string>
#include <utility>

namespace qvx::test {

inline std::string Hexadecimal(DWORD number) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08lX", number);
  return text;
}

using NamedFlag = std::pair<DWORD, const char*>;

/// The names of the bits that are set.
inline std::string Flags(DWORD value, std::initializer_list<NamedFlag> names) {
  std::string text;
  const auto add = [&](const std::string& name) { text += (text.empty() ? "" : " | ") + name; };
  for (const auto& [flag, name] : names) {
    if ((value & flag) != flag) continue;
    add(name);
    value &= ~flag;
  }
  if (value != 0) add(Hexadecimal(value));
  return text.empty() ? "no flags" : text;
}

/// The name of the one number that it is.
inline std::string Choice(DWORD value, std::initializer_list<NamedFlag> names) {
  for (const auto& [number, name] : names) {
    if (value == number) return name;
  }
  return Hexadecimal(value);
}

}  // namespace qvx::test
