// Takes the place of support/fault.cpp: a fault ends the input instead of the fuzzer.
#include <new>
#include <string>

#include "support/fault.h"
#include "tests/fuzz/check.h"

namespace qvx {

void FaultTextTooLong(const char* field, std::size_t width, std::size_t length) {
  throw fuzz::Fault{std::string(field) + " is too long: width " + std::to_string(width) +
                    ", length " + std::to_string(length)};
}

void FaultCannotAllocate(const char* field, std::size_t count) {
  throw fuzz::Fault{std::string(field) + " cannot be allocated: count " + std::to_string(count)};
}

OutOfMemoryThrows::OutOfMemoryThrows() : handler_(std::set_new_handler(nullptr)) {}
OutOfMemoryThrows::~OutOfMemoryThrows() { std::set_new_handler(handler_); }

}  // namespace qvx
