# How clang++ links for 64-bit Windows with LLVM's linker and the libraries of GCC, which
# CMAKE_CXX_COMPILER still names: `lld_flags`, `lld_program_flags` for programs, and GCC's `gcc_folder`.
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-libgcc-file-name
  OUTPUT_VARIABLE gcc_folder OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
cmake_path(GET gcc_folder PARENT_PATH gcc_folder)
# The runtime's thread library comes with -pthread. GNU's linker warns of each copy of a type's
# information that both compilers made; LLVM's does not.
set(lld_flags "-B${gcc_folder} -L${gcc_folder} -pthread -fuse-ld=lld")
# What is loaded late gets its addresses while the program runs, in a section that LLVM's linker makes
# read-only.
set(lld_program_flags "${lld_flags} -Xlinker -Xlink=-section:.rdata,rw")
