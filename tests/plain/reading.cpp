#include <algorithm>
#include <cstdlib>
#include <initializer_list>

#include "tests/plain/bounded.h"
#include "tests/plain/plain_run.h"

namespace qvx::plain {
namespace {

constexpr std::size_t kLongestPiece = 1023;
constexpr std::size_t kPartWidth = 260;

struct Setting {
  std::string_view key, value;

  /// Spaces in a key do not count.
  bool Is(std::string_view name) const {
    std::size_t matched = 0;
    for (const char c : key) {
      if (c == ' ') continue;
      if (matched == name.size() || c != name[matched]) return false;
      ++matched;
    }
    return matched == name.size();
  }
};

/// The part before the first `separator`, and the part behind it.
Setting Split(std::string_view line, char separator) {
  const std::size_t at = line.find(separator);
  if (at == std::string_view::npos) return {line, "NULL"};
  return {line.substr(0, at), line.substr(at + 1)};
}

bool IsTag(std::string_view line, std::string_view open, std::string_view section) {
  return line.size() == open.size() + section.size() + 1 && line.starts_with(open) &&
         line.substr(open.size(), section.size()) == section && line.back() == '>';
}

template <typename Handle>
void ForEachSetting(const CmxFile& file, std::string_view section, End& end, Handle handle) {
  bool inside = false;
  for (const std::string_view line : file.Lines()) {
    inside = inside || IsTag(line, "<", section);
    if (!inside) continue;
    Setting setting = Split(line, '=');
    Bounded(end, "CMX key", kPartWidth, setting.key);
    Bounded(end, "CMX value", kPartWidth, setting.value);
    const std::size_t text = setting.value.find_first_not_of(' ');
    setting.value.remove_prefix(std::min(text, setting.value.size()));
    if (!end.Happened()) handle(setting);
    if (end.Happened()) return;
    inside = !IsTag(line, "</", section);
  }
}

struct Field {
  const char* key;
  std::size_t width;
  std::string& text;
};

bool Store(std::initializer_list<Field> fields, const Setting& setting, End& end) {
  for (const Field& field : fields) {
    if (!setting.Is(field.key)) continue;
    field.text = Bounded(end, field.key, field.width, setting.value);
    return true;
  }
  return false;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

std::string InTextMode(std::string_view bytes) {
  std::string text(bytes.substr(0, bytes.find('\x1A')));
  for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; ++at) {
    text.erase(at, 1);
  }
  return text;
}

CmxFile::CmxFile(std::string_view bytes) : text_(InTextMode(bytes)) {
  const std::string_view text = text_;
  lines_.reserve(static_cast<std::size_t>(std::ranges::count(text, '\n')) + 2);
  bool endSeen = false;
  for (std::size_t at = 0; at < text.size() && !endSeen;) {
    const std::size_t lineEnd = text.find('\n', at);
    const std::size_t whole = std::min(lineEnd, text.size() - 1) + 1 - at;
    const std::size_t length = std::min(whole, kLongestPiece);
    // Only a read that wanted more than there was has seen the end.
    endSeen = lineEnd == std::string::npos && whole < kLongestPiece;
    std::string_view line = text.substr(at, length);
    at += length;
    if (line.back() == '\n') line.remove_suffix(1);
    lines_.push_back(line.substr(0, line.find('\0')));
  }
  // The read that finds nothing more leaves the last line in place.
  if (!endSeen) lines_.push_back(lines_.empty() ? "" : lines_.back());
}

std::int32_t Integer(std::string_view text) {
  constexpr std::int64_t kLimit = INT64_C(1) << 31;
  std::size_t at = std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size());
  const bool isNegative = at < text.size() && text[at] == '-';
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  std::int64_t number = 0;
  for (; at < text.size() && IsDigit(text[at]); ++at) {
    number = std::min(number * 10 + (text[at] - '0'), kLimit);
  }
  return static_cast<std::int32_t>(isNegative ? -number : std::min(number, kLimit - 1));
}

double Decimal(std::string_view text) {
  std::size_t at = std::min(text.find_first_not_of(" \t"), text.size());
  const auto takeOneOf = [&](std::string_view characters) {
    const bool found = at < text.size() && characters.find(text[at]) != std::string_view::npos;
    if (found) ++at;
    return found;
  };
  const auto takeDigits = [&] {
    const std::size_t start = at;
    while (at < text.size() && IsDigit(text[at])) ++at;
    return at - start;
  };
  takeOneOf("+-");
  std::size_t digits = takeDigits();
  if (takeOneOf(".")) digits += takeDigits();
  if (digits == 0) return 0;
  std::size_t end = at;
  if (takeOneOf("eE")) {
    takeOneOf("+-");
    if (takeDigits() > 0) end = at;
  }
  return std::strtod(std::string(text.substr(0, end)).c_str(), nullptr);
}

TaskManager ReadTaskManager(const CmxFile& file, End& end) {
  TaskManager record;
  ForEachSetting(file, "TASKMANAGER", end, [&](const Setting& setting) {
    Store({{"Version", 32, record.Version},
           {"IDTaskMode", 32, record.IDTaskMode},
           {"flagAccelerationType", 32, record.flagAccelerationType},
           {"ValueNoTask", 32, record.ValueNoTask},
           {"ValueLocalNoTask", 32, record.ValueLocalNoTask},
           {"ValueConsoleRedirection", 32, record.ValueConsoleRedirection}},
          setting, end);
  });
  return record;
}

RemoteMachines ReadRemoteMachines(const CmxFile& file, End& end) {
  RemoteMachines record;
  bool machinesOpen = false;
  bool weightingsOpen = false;
  std::int32_t machineLines = 0;
  std::int32_t weightingLines = 0;
  // The entry of a block's next line, which may be past the list; closes the block behind its last.
  const auto next = [&](bool& open, std::int32_t& lines) -> Machine* {
    open = ++lines != Integer(record.ValueNoMachine);
    const auto count = static_cast<std::size_t>(lines);
    return count <= record.machines.size() ? &record.machines[count - 1] : nullptr;
  };
  ForEachSetting(file, "REMOTE_MACHINES", end, [&](const Setting& setting) {
    if (machinesOpen) {
      Machine* machine = next(machinesOpen, machineLines);
      if (machine == nullptr) return;
      const Setting hostAndRest = Split(setting.value, '\t');
      const Setting tasksAndRest = Split(hostAndRest.value, '\t');
      machine->host = Bounded(end, "machine host name", 32, hostAndRest.key);
      machine->tasks = Bounded(end, "machine task count", 32, tasksAndRest.key);
    } else if (weightingsOpen) {
      Machine* machine = next(weightingsOpen, weightingLines);
      if (machine == nullptr) return;
      const std::string_view text = setting.value.substr(0, setting.value.find(' '));
      machine->weighting = Bounded(end, "machine weighting", 32, text);
    } else if (Store({{"ValueNoMachine", 32, record.ValueNoMachine}}, setting, end)) {
      const std::int32_t count = Counted(end, Integer(record.ValueNoMachine));
      record.machines.assign(static_cast<std::size_t>(std::max(count, 0)), {});
    } else if (Store({{"Version", 32, record.Version},
                      {"ValueRemoteNoTask", 32, record.ValueRemoteNoTask},
                      {"ValueMap", 32, record.ValueMap},
                      {"ValueStorageNode", 32, record.ValueStorageNode},
                      {"ValueShareFolderName", 260, record.ValueShareFolderName},
                      {"ValueParallelWorkingFolder", 260, record.ValueParallelWorkingFolder},
                      {"ValueLocalHost", 32, record.ValueLocalHost}},
                     setting, end)) {
      return;
    } else {
      machinesOpen = setting.Is("ValueMachineSetting");
      weightingsOpen = setting.Is("ValueMachineWeighting");
    }
  });
  if (record.ValueStorageNode.empty()) record.ValueStorageNode = record.ValueLocalHost;
  return record;
}

MultiShot ReadMultiShot(const CmxFile& file, End& end) {
  MultiShot record;
  ForEachSetting(file, "SOLID_MCM", end, [&](const Setting& setting) {
    const std::string_view value = setting.value;
    if (setting.Is("Version")) record.Version = value.substr(0, 31);
    if (setting.Is("FlagPrevShot")) record.FlagPrevShot = Integer(value);
    if (setting.Is("ValueShotRunID")) record.ValueShotRunID = Integer(value);
    if (setting.Is("FlagPrevShotProject")) record.FlagPrevShotProject = Integer(value);
    if (setting.Is("ValueShotProjectPath")) record.ValueShotProjectPath = value;
    if (setting.Is("ValueShotProjectName")) record.ValueShotProjectName = value;
  });
  return record;
}

std::int32_t ReadSolidCool(const CmxFile& file, End& end) {
  std::int32_t flag = 0;
  ForEachSetting(file, "SOLID_COOL", end, [&](const Setting& setting) {
    if (!setting.Is("Flag3DSolidCoolingChannel")) return;
    std::string digits(setting.value);
    std::erase(digits, ' ');
    flag = Integer(digits);
  });
  return flag;
}

}  // namespace qvx::plain
