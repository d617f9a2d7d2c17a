// What the plain formulation does with a text or a count that is too large.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tests/plain/plain_run.h"

namespace qvx::plain {

/// `text`; the end when its field of `width` characters, terminating zero included, is too small.
inline std::string_view Bounded(End& end, const char* field, std::size_t width,
                                std::string_view text) {
  if (text.size() >= width && !end.Happened()) {
    end.fault = std::string(field) + " is too long: width " + std::to_string(width) + ", length " +
                std::to_string(text.size());
  }
  return text;
}

/// `count`, or 0 and the end when it is more than a list is made for.
inline std::int32_t Counted(End& end, std::int64_t count) {
  if (count <= kMostCounted) return static_cast<std::int32_t>(count);
  if (!end.Happened()) end.isTooLarge = true;
  return 0;
}

}  // namespace qvx::plain
