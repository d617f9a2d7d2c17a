// The variables of one solver process. Of a name given twice, in whatever letter case, the first
// holds; so what matters most is set first and what a process has anyway comes last.
#pragma once

#include <map>
#include <string>

namespace impiexec {

class Environment {
 public:
  void Set(const std::string& name, const std::string& value);

  /// Adds the variables of this process.
  void AddOwn();

  /// Adds the variables that every process of this computer has, as a service would.
  void AddMachines();

  /// For CREATE_UNICODE_ENVIRONMENT.
  [[nodiscard]] std::wstring Block() const;

 private:
  void AddBlock(const wchar_t* block);

  struct ComesBefore {
    bool operator()(const std::wstring& left, const std::wstring& right) const;
  };

  std::map<std::wstring, std::wstring, ComesBefore> variables_;
};

}  // namespace impiexec
