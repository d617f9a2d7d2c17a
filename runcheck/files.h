// The disk, as the launcher's own calls see it: paths in the ANSI code page. Everything here only
// looks.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace qvx::runcheck {

enum class FileKind { Missing, File, Folder };

FileKind KindOf(const std::string& path);

/// At most `limit` bytes from the start of a file; nothing when it cannot be read.
std::optional<std::string> ReadFileStart(const std::string& path, std::size_t limit);

/// The names that match a pattern with wildcards, folders too; "." and ".." excepted.
std::vector<std::string> NamesMatching(const std::string& pattern);

/// True when this user may make files in the folder. Nothing is made.
bool MayWriteInto(const std::string& folder);

/// The program that the system would start for an unquoted command line; empty for none.
std::string ProgramOf(const std::string& commandLine);

/// The folder of this program, without a trailing backslash.
std::string OwnFolder();

std::string AnsiToUtf8(const std::string& ansi);

}  // namespace qvx::runcheck
