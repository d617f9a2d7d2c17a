// Numbers that arrive as text, from the command line and from the CMX file. Neither fails: a text
// that does not start with a number gives 0.
#pragma once

#include <cstdint>

namespace qvx {

/// Reads like `atoi`: leading white space, a sign, digits, the rest ignored. Numbers beyond 32 bits
/// give the nearest limit.
std::int32_t ParseInteger(const char* text);

/// A decimal number that may have a fraction or an exponent; nothing else that `strtod` reads.
double ParseDecimal(const char* text);

}  // namespace qvx
