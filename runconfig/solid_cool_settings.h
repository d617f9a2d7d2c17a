// The `SOLID_COOL` section of the CMX file: whether the mold has 3D solid cooling channels.
#pragma once

#include <cstdint>

namespace qvx {

/// Sets `flag` to the value of `Flag3DSolidCoolingChannel`, 0 when the file does not name it.
/// Always returns 0; a file that cannot be read gets a message.
int ReadSolidCoolSettings(const char* path, std::int32_t& flag);

}  // namespace qvx
