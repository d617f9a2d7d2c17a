# Cross-builds for 64-bit Windows with Clang: headers and runtime are those of the posix
# flavour of Debian's mingw-w64. Clang does not find that flavour's folders by itself, and would look
# into this machine's own.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64-x86_64.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/lld.cmake)

foreach(language C CXX)
  set(CMAKE_${language}_COMPILER_TARGET x86_64-w64-mingw32)
  # After Clang's own headers, which wrap some of these.
  set(CMAKE_${language}_FLAGS_INIT "--start-no-unused-arguments -nostdlibinc --end-no-unused-arguments -idirafter ${CMAKE_FIND_ROOT_PATH}/include")
endforeach()
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
# LLVM's makes no libraries for late loading.
set(CMAKE_DLLTOOL x86_64-w64-mingw32-dlltool)
string(APPEND CMAKE_CXX_FLAGS_INIT
  " -isystem ${gcc_folder}/include/c++ -isystem ${gcc_folder}/include/c++/x86_64-w64-mingw32"
  # GCC says so for this target, and its library is built so.
  " -D__GXX_TYPEINFO_EQUALITY_INLINE=0 -D__GXX_MERGED_TYPEINFO_NAMES=0")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${lld_flags}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${lld_program_flags}")
