// Finds where the loader put the address of a closed library's function, for an ImportPatch. Each
// compiler makes another name of a C++ function; they all keep its parts.
#pragma once

#include <string_view>
#include <vector>

namespace qvx::test {

/// How the compilers mark a constructor and a destructor.
inline const std::vector<std::string_view> kConstructor = {"C1Ev", "??0"};
inline const std::vector<std::string_view> kDestructor = {"D1Ev", "??1"};

/// The slot of the one function that this program imports whose name holds `className` and one of
/// `marks`. Ends the program when there is none, or a second one.
void** ImportedMember(std::string_view className, const std::vector<std::string_view>& marks);

}  // namespace qvx::test
