// What an action prints, byte by byte: the launcher's own lines, which pass the C runtime's text
// mode, and the child's bytes, which go straight to the standard-output handle.
#pragma once

#include <string>

namespace qvx::test {

struct Console {
  std::string written;   ///< what had reached the console when the action ended
  std::string buffered;  ///< what was printed but not flushed: it follows with the next flush

  std::string All() const { return written + buffered; }
};

/// While one lives, the C runtime's standard output and the handle both lead to one file.
class ConsoleCapture {
 public:
  ConsoleCapture();
  ~ConsoleCapture();
  ConsoleCapture(const ConsoleCapture&) = delete;
  ConsoleCapture& operator=(const ConsoleCapture&) = delete;

  Console Take() const;

 private:
  int file_;
  int standardOutput_;
};

template <typename Action>
Console ConsoleOf(Action&& action) {
  const ConsoleCapture capture;
  action();
  return capture.Take();
}

}  // namespace qvx::test
