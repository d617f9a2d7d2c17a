// The host of a tests' closed library; each library has one of its own.
#pragma once

#include <string>

#include "tests/transcripts/libraries/library_host.h"

namespace qvx::test {

inline const LibraryHost* host = nullptr;

/// Records one operation of `object` while it lives.
class Operation {
 public:
  Operation(const void* object, const char* function) : object_(object), text_(function) {
    host->begin(function);
  }
  ~Operation() { host->end(object_, text_.c_str()); }
  Operation(const Operation&) = delete;
  Operation& operator=(const Operation&) = delete;

  Operation& Add(const std::string& text) {
    text_ += text;
    return *this;
  }

 private:
  const void* object_;
  std::string text_;
};

}  // namespace qvx::test

extern "C" __declspec(dllexport) inline void AttachTranscript(const qvx::test::LibraryHost* host) {
  qvx::test::host = host;
}
