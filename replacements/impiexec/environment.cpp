#include "replacements/impiexec/environment.h"

#include <userenv.h>
#include <windows.h>

namespace impiexec {
namespace {

std::wstring Wide(const std::string& text) {
  const int size = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');
  wide.resize(static_cast<std::size_t>(
      MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size)));
  return wide;
}

}  // namespace

bool Environment::ComesBefore::operator()(const std::wstring& left,
                                          const std::wstring& right) const {
  return CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, TRUE) == CSTR_LESS_THAN;
}

void Environment::Set(const std::string& name, const std::string& value) {
  variables_.emplace(Wide(name), Wide(value));
}

void Environment::AddOwn() {
  wchar_t* block = GetEnvironmentStringsW();
  AddBlock(block);
  FreeEnvironmentStringsW(block);
}

void Environment::AddMachines() {
  void* block = nullptr;
  if (CreateEnvironmentBlock(&block, nullptr, FALSE) == 0) return;
  AddBlock(static_cast<const wchar_t*>(block));
  DestroyEnvironmentBlock(block);
}

void Environment::AddBlock(const wchar_t* block) {
  while (*block != L'\0') {
    const std::wstring entry = block;
    // A drive's current folder has a name that begins with the sign.
    const std::size_t sign = entry.find(L'=', 1);
    variables_.emplace(entry.substr(0, sign), entry.substr(sign + 1));
    block += entry.size() + 1;
  }
}

std::wstring Environment::Block() const {
  std::wstring block;
  for (const auto& [name, value] : variables_) {
    block.append(name).append(L"=").append(value).push_back(L'\0');
  }
  block.push_back(L'\0');
  return block;
}

}  // namespace impiexec
