#include "tests/support/machine_state.h"

#include <array>
#include <cstdlib>
#include <fstream>

namespace qvx::test {
namespace {

constexpr const char* kKey = "SOFTWARE\\NelvornSystem";
constexpr const char* kValue = "IntelMPI_InstallPath";

void SetBytes(const char* bytes, std::size_t size) {
  HKEY key = nullptr;
  RegCreateKeyA(HKEY_LOCAL_MACHINE, kKey, &key);
  RegSetValueExA(key, kValue, 0, REG_SZ, reinterpret_cast<const BYTE*>(bytes),
                 static_cast<DWORD>(size));
  RegCloseKey(key);
}

std::optional<std::string> ReadValue() {
  std::array<char, 1024> text{};
  DWORD size = text.size();
  if (RegGetValueA(HKEY_LOCAL_MACHINE, kKey, kValue, RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  return text.data();
}

}  // namespace

MpiInstallPathValue::MpiInstallPathValue() : before_(ReadValue()) {}

MpiInstallPathValue::~MpiInstallPathValue() {
  if (before_) {
    Set(*before_);
  } else {
    Remove();
  }
}

void MpiInstallPathValue::Set(const std::string& path) const {
  SetBytes(path.c_str(), path.size() + 1);
}

void MpiInstallPathValue::SetUnterminated(std::string path) const {
  const std::size_t size = path.size();
  // The system counts a zero that follows the text as part of it.
  path += 'x';
  SetBytes(path.data(), size);
}

void MpiInstallPathValue::Remove() const { RegDeleteKeyValueA(HKEY_LOCAL_MACHINE, kKey, kValue); }

void MpiInstallPathValue::RemoveKey() const { RegDeleteKeyA(HKEY_LOCAL_MACHINE, kKey); }

DebugTraceSwitchFile::DebugTraceSwitchFile()
    : applicationData_(std::getenv("ProgramData")),
      path_(applicationData_ / "NelvornSystem" / "qvxsolverlauncherdebug.txt"),
      existed_(std::filesystem::remove(path_)) {
  std::filesystem::create_directories(path_.parent_path());
}

DebugTraceSwitchFile::~DebugTraceSwitchFile() {
  std::filesystem::remove(path_);
  if (existed_) std::ofstream{path_};
}

}  // namespace qvx::test
