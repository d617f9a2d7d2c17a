// The transcript of one run: what the launcher asked of the world outside, a line each, in order.
// Texts stand in quotes; characters beyond printable ASCII are words in angle brackets (<LF>, <E9>
// for a byte, <U+00E9> for a UTF-16 unit), "a<x40>" is the same character 40 times, and <site> the
// folder that holds the run's installation and project.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "tests/transcripts/observed_memory.h"

namespace qvx::test {

/// The run's folder, as the launcher sees it.
constexpr std::string_view kSite = "C:\\Site";

std::string Quoted(std::string_view text);
std::string Quoted(std::wstring_view text);

/// `text` in quotes, or `word` for a null pointer.
std::string QuotedOr(const char* text, const char* word);

/// "TRUE", "FALSE", or the number when it is neither.
std::string Truth(int value);

/// "ERROR_FILE_NOT_FOUND" and the like; the number when it has no name here.
std::string ErrorName(DWORD error);

void StartTranscript();

/// What was recorded since the start, each line ended by a line feed.
std::string TakeTranscript();

void Record(const std::string& line);

/// One call of the launcher's to the outside while it is answered: takes down first what changed
/// since the last call, and lets a console event come in that waits for this call. What is
/// allocated while one lives is the test's, not the launcher's.
class Observation {
 public:
  explicit Observation(const char* function);
  ~Observation();
  Observation(const Observation&) = delete;
  Observation& operator=(const Observation&) = delete;

  /// The scenario lets this call fail; the last-error code is set then.
  bool Fails() const { return fails_; }

 private:
  const OwnMemory ownMemory_;
  std::string function_;
  bool fails_ = false;
};

/// Reads lines in a row as one line of the transcript. `end`: what came in place of a line; empty
/// for a line.
void CountLineRead(const std::string& stream, const std::string& end);

/// A text that a closed library lends until the launcher's next call to the outside: it is made
/// unreadable then. Bytes of zeros end it; `unit` is 1 or 2 bytes.
void LendText(void* text, std::size_t length, std::size_t unit);

}  // namespace qvx::test
