// What the tests' closed libraries ask of the program that loaded them: to be recorded, and how to
// answer. Each library exports AttachTranscript, which takes it.
#pragma once

#include <cstddef>

namespace qvx::test {

struct LibraryAnswers {
  const char* argumentString = "-set 1 -run";
  /// Null for no text. The default has letters that neither ASCII nor a wrong conversion can carry.
  const wchar_t* mpiConfiguration = L"-genv Ort M\u00FCnchen\u2013\u6771";
  int accountResults[2] = {5, 5};  ///< one for each conversion
  int conversionResult = 5;
  int utf8Result = -1;  ///< the text is there all the same
};

struct LibraryHost {
  const LibraryAnswers* answers;
  void (*construct)(const void* object, const char* role);
  void (*destroy)(const void* object);
  /// Brackets an operation; at its end "ROLE: CALL" becomes a line.
  void (*begin)(const char* function);
  void (*end)(const void* object, const char* call);
  const char* (*roleOf)(const void* object);
  /// Quotes as the transcript does. Holds until the next call.
  const char* (*quote)(const char* text);
  const char* (*quoteWide)(const wchar_t* text);
  void (*lend)(void* text, std::size_t length, std::size_t unit);
  void (*watch)(const void* block, const char* name);
};

}  // namespace qvx::test
