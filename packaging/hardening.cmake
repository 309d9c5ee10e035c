# SPDX-License-Identifier: MIT
# Not for the sanitizers, which have their own checks, nor without optimisation, which _FORTIFY_SOURCE needs.
include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)
include(CheckPIESupported)

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
check_pie_supported()

# Where the C library does not know level 3 its headers warn.
set(CMAKE_REQUIRED_FLAGS "-O2 -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 -Werror")
check_cxx_source_compiles("#include <cstring>\nint main() { return 0; }" QUILLBERRY_FORTIFY_3)
unset(CMAKE_REQUIRED_FLAGS)
set(fortifyLevel $<IF:$<BOOL:${QUILLBERRY_FORTIFY_3}>,3,2>)
check_cxx_compiler_flag(-fcf-protection QUILLBERRY_CF_PROTECTION)  # x86 alone has it

target_compile_options(quillberry_options INTERFACE
  -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=${fortifyLevel} -fstack-protector-strong
  $<$<BOOL:${QUILLBERRY_CF_PROTECTION}>:-fcf-protection>)
target_link_options(quillberry_options INTERFACE -Wl,-z,relro -Wl,-z,now -Wl,--as-needed)
