#include "runconfig/solid_cool_settings.h"

#include <string_view>

#include "runconfig/cmx_section_reader.h"
#include "support/numbers.h"

namespace qvx {

int ReadSolidCoolSettings(const char* path, std::int32_t& flag) {
  flag = 0;
  ReadCmxSection(path, "SOLID_COOL", [&](const CmxSetting& setting) {
    if (std::string_view(setting.key) != "Flag3DSolidCoolingChannel") return;
    // Unlike the other sections, this one takes every space out of the value too.
    CmxSetting withoutSpaces = setting;
    RemoveAllSpaces(withoutSpaces.value);
    flag = ParseInteger(withoutSpaces.value);
  });
  return 0;
}

}  // namespace qvx
