// The rules over the lines of a run's CMX file. Each looks at the lines alone, so that a text that
// ends the launcher at one place does not hide what is wrong at another.
#pragma once

#include <optional>
#include <string_view>

#include "runcheck/cmx_facts.h"
#include "runcheck/diagnostic.h"

namespace qvx::runcheck {

/// Everything that the rules below find.
Diagnostics CheckCmxFile(const CmxFacts& facts);

/// The file as bytes: byte-order mark, UTF-16, zero bytes, Ctrl-Z, line ends, long lines.
void CheckBytes(const CmxFacts& facts, Diagnostics& found);
/// False when no other rule can say anything about the file.
bool HasLines(std::string_view bytes);

/// Tags: nearly written ones, sections that are open, opened twice or missing.
void CheckTags(const CmxFacts& facts, Diagnostics& found);
/// True for a line that is a section's tag, or was meant to be one.
bool IsTagLike(const CmxFacts& facts, const CmxLine& line);

/// Keys: unknown, misspelt, elsewhere, twice.
void CheckKeys(const CmxFacts& facts, Diagnostics& found);
/// What a misspelt or shortened key was meant to be; null for none.
const CmxKey* FindSimilarKey(const CmxSection& section, std::string_view name);

/// True when a finding about the lines speaks of `key`, by name or as what was meant.
bool IsKeyTold(const Diagnostics& found, std::string_view key);

/// The key that `section` has to hold; empty for none.
std::string_view NeededKey(const CmxSection& section);
/// Keys that are needed and of which nothing found so far speaks.
void CheckMissingKeys(const CmxFacts& facts, Diagnostics& found);
/// What stands behind `key` when it is the first word of `text`, after other characters or none.
std::optional<std::string_view> BehindFirstWord(std::string_view text, std::string_view key);

/// Values: blanks, comments and quotation marks around them, numbers that are none.
void CheckValues(const CmxFacts& facts, Diagnostics& found);

/// Keys and values too long for the readers, in the order in which they would stop at them.
void CheckWidths(const CmxFacts& facts, Diagnostics& found);

/// The two blocks of machines.
void CheckMachineBlocks(const CmxFacts& facts, Diagnostics& found);

}  // namespace qvx::runcheck
