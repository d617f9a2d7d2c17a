// The sections of the CMX file that the launcher reads, with their keys.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

#include "runconfig/multi_shot_settings.h"
#include "runconfig/remote_machine_settings.h"
#include "runconfig/task_manager_settings.h"

namespace qvx::runcheck {

enum class KeyUse {
  Shown,  ///< in the debug trace alone
  Mode,
  LocalTasks,
  Tasks,
  MachineCount,
  Host,
  Folder,
  MachineBlock,    ///< opens the block; its value is not looked at
  WeightingBlock,  ///< the same
  Flag,            ///< 0 or 1
  Integer,
  Text,
};

struct CmxKey {
  std::string_view name;
  KeyUse use;
  std::size_t width;  ///< with the terminating zero; 0 for a value that cannot be too long
};

/// The most keys of a section.
constexpr std::size_t kMostKeys = 10;

struct CmxSection {
  std::string_view name;
  std::span<const CmxKey> keys;
};

inline constexpr CmxKey kTaskManagerKeys[] = {
    {"Version", KeyUse::Shown, sizeof TaskManagerSettings::Version},
    {"IDTaskMode", KeyUse::Mode, sizeof TaskManagerSettings::IDTaskMode},
    {"flagAccelerationType", KeyUse::Shown, sizeof TaskManagerSettings::flagAccelerationType},
    {"ValueNoTask", KeyUse::Tasks, sizeof TaskManagerSettings::ValueNoTask},
    {"ValueLocalNoTask", KeyUse::LocalTasks, sizeof TaskManagerSettings::ValueLocalNoTask},
    {"ValueConsoleRedirection", KeyUse::Shown, sizeof TaskManagerSettings::ValueConsoleRedirection},
};

inline constexpr CmxKey kRemoteMachineKeys[] = {
    {"Version", KeyUse::Shown, sizeof RemoteMachineSettings::Version},
    {"ValueNoMachine", KeyUse::MachineCount, sizeof RemoteMachineSettings::ValueNoMachine},
    {"ValueRemoteNoTask", KeyUse::Shown, sizeof RemoteMachineSettings::ValueRemoteNoTask},
    {"ValueMap", KeyUse::Shown, sizeof RemoteMachineSettings::ValueMap},
    {"ValueShareFolderName", KeyUse::Folder, sizeof RemoteMachineSettings::ValueShareFolderName},
    {"ValueParallelWorkingFolder", KeyUse::Folder,
     sizeof RemoteMachineSettings::ValueParallelWorkingFolder},
    {"ValueLocalHost", KeyUse::Host, sizeof RemoteMachineSettings::ValueLocalHost},
    {"ValueStorageNode", KeyUse::Host, sizeof RemoteMachineSettings::ValueStorageNode},
    {"ValueMachineSetting", KeyUse::MachineBlock, 0},
    {"ValueMachineWeighting", KeyUse::WeightingBlock, 0},
};

inline constexpr CmxKey kMultiShotKeys[] = {
    {"Version", KeyUse::Shown, 0},
    {"FlagPrevShot", KeyUse::Flag, 0},
    {"ValueShotRunID", KeyUse::Integer, 0},
    {"FlagPrevShotProject", KeyUse::Shown, 0},
    {"ValueShotProjectPath", KeyUse::Text, 0},
    {"ValueShotProjectName", KeyUse::Text, 0},
};

inline constexpr CmxKey kSolidCoolKeys[] = {{"Flag3DSolidCoolingChannel", KeyUse::Flag, 0}};

inline constexpr CmxSection kTaskManagerSection = {"TASKMANAGER", kTaskManagerKeys};
inline constexpr CmxSection kRemoteMachinesSection = {"REMOTE_MACHINES", kRemoteMachineKeys};
inline constexpr CmxSection kMultiShotSection = {"SOLID_MCM", kMultiShotKeys};
inline constexpr CmxSection kSolidCoolSection = {"SOLID_COOL", kSolidCoolKeys};

/// In the order in which the launcher reads them.
inline constexpr const CmxSection* kSections[] = {&kTaskManagerSection, &kRemoteMachinesSection,
                                                  &kMultiShotSection, &kSolidCoolSection};

static_assert(std::ranges::all_of(kSections, [](const CmxSection* section) {
  return section->keys.size() <= kMostKeys;
}));

/// Null for a text that is no key of the section.
constexpr const CmxKey* FindKey(const CmxSection& section, std::string_view name) {
  for (const CmxKey& key : section.keys) {
    if (key.name == name) return &key;
  }
  return nullptr;
}

/// Of a key of the section.
constexpr std::size_t IndexOf(const CmxSection& section, const CmxKey& key) {
  return static_cast<std::size_t>(&key - section.keys.data());
}

}  // namespace qvx::runcheck
