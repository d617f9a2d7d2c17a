# Cross-builds for 64-bit Windows with Clang: headers and runtime are those of the posix
# flavour of Debian's mingw-w64. Clang does not find that flavour's folders by itself, and would look
# into this machine's own.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64-x86_64.cmake)
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-libgcc-file-name
  OUTPUT_VARIABLE gcc_folder OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
cmake_path(GET gcc_folder PARENT_PATH gcc_folder)

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
foreach(kind EXE SHARED)
  # The runtime's thread library comes with -pthread. GNU's linker warns of each copy of a type's
  # information that both compilers made; LLVM's does not.
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-B${gcc_folder} -L${gcc_folder} -pthread -fuse-ld=lld")
endforeach()
# What is loaded late gets its addresses while the program runs, in a section that LLVM's linker makes
# read-only.
string(APPEND CMAKE_EXE_LINKER_FLAGS_INIT " -Xlinker -Xlink=-section:.rdata,rw")
