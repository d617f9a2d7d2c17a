// Lets one call of one Windows function fail: the n-th that the arming thread makes.
#pragma once

#include <windows.h>

#include <string>

namespace qvx::test {

class FailingCall {
 public:
  /// `function`: one of the functions that the product calls. `call` counts from 1.
  FailingCall(const std::string& function, int call, DWORD error);
  ~FailingCall();
  FailingCall(const FailingCall&) = delete;
  FailingCall& operator=(const FailingCall&) = delete;

  /// Where the call came from; null when it did not come.
  const void* Caller() const;
};

}  // namespace qvx::test
