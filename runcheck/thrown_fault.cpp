// Takes the place of support/fault.cpp.
#include "runcheck/thrown_fault.h"

#include <new>

#include "support/fault.h"

namespace qvx {

using runcheck::ThrownFault;

void FaultTextTooLong(const char* field, std::size_t width, std::size_t length) {
  throw ThrownFault{ThrownFault::Kind::TextTooLong,
                    std::string(field) + " is too long: width " + std::to_string(width) +
                        ", length " + std::to_string(length),
                    field};
}

void FaultCannotAllocate(const char* field, std::size_t count) {
  throw ThrownFault{ThrownFault::Kind::CannotAllocate,
                    std::string(field) + " cannot be allocated: count " + std::to_string(count),
                    field};
}

void FaultOutOfMemory() { throw ThrownFault{ThrownFault::Kind::OutOfMemory, "out of memory", {}}; }

void FaultUnexpectedException() {
  throw ThrownFault{ThrownFault::Kind::UnexpectedException, "unexpected exception", {}};
}

OutOfMemoryThrows::OutOfMemoryThrows() : handler_(std::set_new_handler(nullptr)) {}
OutOfMemoryThrows::~OutOfMemoryThrows() { std::set_new_handler(handler_); }

}  // namespace qvx
