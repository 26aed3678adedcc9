# What every target shares: warnings, sanitizers, and one library or test program for each folder.

add_library(kestrane_options INTERFACE)
target_compile_options(kestrane_options INTERFACE -Wall -Wextra -Wconversion -Wshadow)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 warns falsely where a text is joined to a literal (GCC bug 105651).
  target_compile_options(kestrane_options INTERFACE -Wno-restrict)
endif()
if(KESTRANE_WERROR)
  target_compile_options(kestrane_options INTERFACE -Werror)
endif()
if(KESTRANE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(CMAKE_BUILD_TYPE STREQUAL "Release")
  include(cmake/Hardening.cmake)
endif()

# kestrane_library(<folder> [LINK <target>...] [PRIVATE_LINK <target>...]): the sources of the
# current folder as the library kestrane_<folder>. It links what the folder may include and
# nothing else; PRIVATE_LINK is for what its headers do not show.
function(kestrane_library folder)
  cmake_parse_arguments(ARG "" "" "LINK;PRIVATE_LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
  add_library(kestrane_${folder} STATIC ${sources})
  set_target_properties(kestrane_${folder} PROPERTIES LINKER_LANGUAGE CXX)
  target_include_directories(kestrane_${folder} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(kestrane_${folder} PUBLIC ${ARG_LINK}
                        PRIVATE ${ARG_PRIVATE_LINK} kestrane_options)
endfunction()

# kestrane_test(<folder> [LINK <target>...] [PRECOMPILED <header>...]): the sources of tests/<folder>
# as one test program. Those with the virtual-time platform share one precompiled header.
function(kestrane_test folder)
  cmake_parse_arguments(ARG "" "" "LINK;PRECOMPILED" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  add_executable(test_${folder} ${sources})
  # What is tested is what users get; the tests themselves run once.
  target_compile_options(test_${folder} PRIVATE $<$<CONFIG:Release>:-O0>
                         -U_FORTIFY_SOURCE)
  target_link_libraries(test_${folder} PRIVATE ${ARG_LINK} GTest::gtest GTest::gmock
                        GTest::gtest_main kestrane_options)
  if(ARG_PRECOMPILED)
    target_precompile_headers(test_${folder} PRIVATE ${ARG_PRECOMPILED})
  elseif(kestrane_test_support IN_LIST ARG_LINK)
    target_precompile_headers(test_${folder} REUSE_FROM test_virtual_time)
  endif()
  gtest_discover_tests(test_${folder} DISCOVERY_TIMEOUT 60)
endfunction()
