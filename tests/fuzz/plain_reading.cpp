#include "tests/fuzz/plain_reading.h"

#include <algorithm>
#include <cstdint>
#include <functional>

#include "tests/fuzz/memory_file.h"

namespace qvx::fuzz {
namespace {

std::string Without(std::string text, char unwanted) {
  std::string rest;
  for (const char c : text) {
    if (c != unwanted) rest += c;
  }
  return rest;
}

/// The lines that a reader handles, in order.
std::vector<std::string> PlainLines(const std::string& file) {
  constexpr std::size_t kLongest = 1023;
  std::vector<std::string> lines = {""};
  const std::string text = InTextMode(file);
  bool endSeen = false;
  for (std::size_t at = 0; at < text.size() && !endSeen;) {
    const std::size_t lineEnd = text.find('\n', at);
    std::size_t length = lineEnd == std::string::npos ? text.size() - at : lineEnd + 1 - at;
    // Only a read that wanted more than there was has seen the end.
    endSeen = lineEnd == std::string::npos && length < kLongest;
    length = std::min(length, kLongest);
    std::string line = text.substr(at, length);
    if (line.back() == '\n') line.pop_back();
    lines.push_back(line.substr(0, line.find('\0')));
    at += length;
  }
  if (!endSeen) lines.push_back(lines.back());
  return lines;
}

struct KeyValue {
  std::string key, value;
};

KeyValue Split(const std::string& line, char separator) {
  const std::size_t at = line.find(separator);
  const bool found = at != std::string::npos;
  const std::string key = Bounded("CMX key", 260, found ? line.substr(0, at) : line);
  return {key, Bounded("CMX value", 260, found ? line.substr(at + 1) : "NULL")};
}

void ForEachSetting(const std::string& file, const std::string& section,
                    const std::function<void(const KeyValue&)>& handle) {
  bool inside = false;
  for (const std::string& line : PlainLines(file)) {
    inside = inside || line == "<" + section + ">";
    if (!inside) continue;
    KeyValue setting = Split(line, '=');
    setting.key = Without(setting.key, ' ');
    const std::size_t text = setting.value.find_first_not_of(' ');
    setting.value = text == std::string::npos ? "" : setting.value.substr(text);
    handle(setting);
    inside = line != "</" + section + ">";
  }
}

}  // namespace

std::string Bounded(const std::string& field, std::size_t width, const std::string& text) {
  if (text.size() < width) return text;
  throw Fault{field + " is too long: width " + std::to_string(width) + ", length " +
              std::to_string(text.size())};
}

int PlainInteger(const std::string& text) {
  std::size_t at = 0;
  while (at < text.size() && std::string(" \t\n\v\f\r").find(text[at]) != std::string::npos) ++at;
  const bool negative = at < text.size() && text[at] == '-';
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  std::int64_t number = 0;
  for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
    number = std::min<std::int64_t>(number * 10 + (text[at] - '0'), INT64_C(1) << 31);
  }
  if (negative) return static_cast<int>(-number);
  return static_cast<int>(std::min<std::int64_t>(number, INT32_MAX));
}

int PlainCount(const std::string& text) {
  constexpr int kMost = 4096;
  const int count = PlainInteger(text);
  if (count > kMost) throw TooLarge{};
  return count;
}

Facts PlainTaskManager(const std::string& file) {
  Facts fields;
  ForEachSetting(file, "TASKMANAGER", [&](const KeyValue& setting) {
    for (const char* key : {"Version", "IDTaskMode", "flagAccelerationType", "ValueNoTask",
                            "ValueLocalNoTask", "ValueConsoleRedirection"}) {
      if (setting.key == key) fields[key] = Bounded(key, 32, setting.value);
    }
  });
  return fields;
}

PlainRemoteMachines PlainRemote(const std::string& file) {
  const std::map<std::string, std::size_t> widths = {
      {"Version", 32},           {"ValueNoMachine", 32},
      {"ValueRemoteNoTask", 32}, {"ValueMap", 32},
      {"ValueStorageNode", 32},  {"ValueShareFolderName", 260},
      {"ValueLocalHost", 32},    {"ValueParallelWorkingFolder", 260},
  };
  PlainRemoteMachines result;
  bool machinesOpen = false;
  bool weightingsOpen = false;
  std::size_t machineLines = 0;
  std::size_t weightingLines = 0;
  ForEachSetting(file, "REMOTE_MACHINES", [&](const KeyValue& setting) {
    const auto number = [&] { return PlainInteger(result.fields["ValueNoMachine"]); };
    if (machinesOpen) {
      const std::size_t index = machineLines++;
      machinesOpen = static_cast<int>(machineLines) != number();
      if (index >= result.machines.size()) return;
      const KeyValue hostAndRest = Split(setting.value, '\t');
      const KeyValue tasksAndRest = Split(hostAndRest.value, '\t');
      result.machines[index].host = Bounded("machine host name", 32, hostAndRest.key);
      result.machines[index].tasks = Bounded("machine task count", 32, tasksAndRest.key);
    } else if (weightingsOpen) {
      const std::size_t index = weightingLines++;
      weightingsOpen = static_cast<int>(weightingLines) != number();
      if (index >= result.machines.size()) return;
      const std::string text = setting.value.substr(0, setting.value.find(' '));
      result.machines[index].weighting = Bounded("machine weighting", 32, text);
    } else if (widths.count(setting.key) != 0) {
      result.fields[setting.key] = Bounded(setting.key, widths.at(setting.key), setting.value);
      if (setting.key != "ValueNoMachine") return;
      const int count = PlainCount(setting.value);
      result.machines = std::vector<PlainMachine>(count < 0 ? 0 : static_cast<std::size_t>(count));
    } else if (setting.key == "ValueMachineSetting") {
      machinesOpen = true;
    } else if (setting.key == "ValueMachineWeighting") {
      weightingsOpen = true;
    }
  });
  if (result.fields["ValueStorageNode"].empty()) {
    result.fields["ValueStorageNode"] = result.fields["ValueLocalHost"];
  }
  return result;
}

int PlainCooling(const std::string& file) {
  int flag = 0;
  ForEachSetting(file, "SOLID_COOL", [&](const KeyValue& setting) {
    if (setting.key == "Flag3DSolidCoolingChannel")
      flag = PlainInteger(Without(setting.value, ' '));
  });
  return flag;
}

Facts PlainMultiShot(const std::string& file) {
  Facts fields;
  ForEachSetting(file, "SOLID_MCM", [&](const KeyValue& setting) {
    const auto& [key, value] = setting;
    if (key == "Version") fields[key] = value.substr(0, 31);
    if (key == "ValueShotProjectPath" || key == "ValueShotProjectName") fields[key] = value;
    if (key == "FlagPrevShot" || key == "ValueShotRunID" || key == "FlagPrevShotProject") {
      fields[key] = std::to_string(PlainInteger(value));
    }
  });
  return fields;
}

}  // namespace qvx::fuzz
