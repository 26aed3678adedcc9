# What a release build is hardened with: position-independent programs, addresses resolved and made
# read-only before main, checked stacks, buffers and jumps. packaging/check-hardening reads it back from
# the programs.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
check_pie_supported()
add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong)
add_link_options(LINKER:-z,relro LINKER:-z,now)
foreach(flag stack-clash-protection cf-protection)
  string(MAKE_C_IDENTIFIER ${flag} known)
  check_cxx_compiler_flag(-f${flag} KESTRANE_${known})
  if(KESTRANE_${known})
    add_compile_options(-f${flag})
  endif()
endforeach()
