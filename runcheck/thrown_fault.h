// How the check takes a fault of the launcher's modules: it is thrown, to be caught where the check
// asked them.
#pragma once

#include <string>

namespace qvx::runcheck {

struct ThrownFault {
  enum class Kind { TextTooLong, CannotAllocate, OutOfMemory, UnexpectedException };
  Kind kind;
  std::string message;  ///< the launcher's own, without "ERROR: "
  std::string field;    ///< of a text or a count
};

}  // namespace qvx::runcheck
