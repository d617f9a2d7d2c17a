#include "runconfig/multi_shot_settings.h"

#include <string_view>

#include "runconfig/cmx_section_reader.h"
#include "support/bounded_text.h"
#include "support/numbers.h"

namespace qvx {

int ReadMultiShotSettings(const char* path, MultiShotSettings& record) {
  record = {};
  ReadCmxSection(path, "SOLID_MCM", [&](const CmxSetting& setting) {
    const std::string_view key = setting.key;
    // The texts are cut here, on purpose, where the other sections refuse them.
    if (key == "Version") {
      CopyTruncated(record.Version, setting.value);
    } else if (key == "FlagPrevShot") {
      record.FlagPrevShot = ParseInteger(setting.value);
    } else if (key == "ValueShotRunID") {
      record.ValueShotRunID = ParseInteger(setting.value);
    } else if (key == "FlagPrevShotProject") {
      record.FlagPrevShotProject = ParseInteger(setting.value);
    } else if (key == "ValueShotProjectPath") {
      CopyTruncated(record.ValueShotProjectPath, setting.value);
    } else if (key == "ValueShotProjectName") {
      CopyTruncated(record.ValueShotProjectName, setting.value);
    }
  });
  return 0;
}

}  // namespace qvx
