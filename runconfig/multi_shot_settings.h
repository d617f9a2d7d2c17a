// The `SOLID_MCM` section of the CMX file: the previous shot of a multi-shot run.
#pragma once

#include <cstdint>

namespace qvx {

/// Named like the keys in the file; empty or 0 when the file does not name them.
struct MultiShotSettings {
  char Version[32] = {};
  std::int32_t FlagPrevShot = 0;
  std::int32_t ValueShotRunID = 0;
  std::int32_t FlagPrevShotProject = 0;
  char ValueShotProjectPath[1024] = {};
  char ValueShotProjectName[1024] = {};
};

/// Empties the record, then fills the fields that the file names. Always returns 0; a file that
/// cannot be read gets a message. A value too long for its field is cut to it.
int ReadMultiShotSettings(const char* path, MultiShotSettings& record);

}  // namespace qvx
