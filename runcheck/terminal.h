// Standard output: a terminal with a width and colours, or a file or pipe.
#pragma once

#include <string>

#include "runcheck/diagnostic_text.h"

namespace qvx::runcheck {

class Terminal {
 public:
  Terminal();
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  [[nodiscard]] bool IsTerminal() const { return isTerminal_; }

  /// Colours on a terminal alone, and not with `NO_COLOR`.
  [[nodiscard]] TextStyle Style() const { return style_; }

  /// `text`: in the ANSI code page. A terminal shows it as characters, a file gets its bytes.
  void Write(const std::string& text) const;

  /// `text`: UTF-8, for a file as it stands.
  void WriteUtf8(const std::string& text) const;

 private:
  bool isTerminal_ = false;
  unsigned long mode_ = 0;
  bool changedMode_ = false;
  TextStyle style_;
};

}  // namespace qvx::runcheck
