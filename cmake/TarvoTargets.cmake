# Shared settings for every target of the project.
function(tarvo_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic)
  if(TARVO_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

# A shared library of the project: sources globbed from the given folders, public headers
# from `include_dir`, installed under PREFIX/include/tarvo_readwrite/ and exported under the
# tarvo:: namespace. Consumers put only PREFIX/include on their path and include
# <tarvo_readwrite/NAME.h>.
function(tarvo_library target)
  cmake_parse_arguments(ARG "" "INCLUDE_DIR;EXPORT_NAME" "SOURCE_DIRS;LINK" ${ARGN})
  set(sources)
  foreach(dir ${ARG_SOURCE_DIRS})
    file(GLOB_RECURSE found CONFIGURE_DEPENDS ${dir}/*.cpp)
    list(APPEND sources ${found})
  endforeach()
  add_library(${target} SHARED ${sources})
  add_library(tarvo::${ARG_EXPORT_NAME} ALIAS ${target})
  # Installed libraries find each other beside themselves, wherever the prefix is.
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${ARG_EXPORT_NAME}
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} INSTALL_RPATH "$ORIGIN")
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${ARG_INCLUDE_DIR}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  # The headers use C++17 (std::variant, std::string_view), whatever the consumer asks for.
  target_compile_features(${target} PUBLIC cxx_std_17)
  target_link_libraries(${target} PUBLIC ${ARG_LINK})
  tarvo_warnings(${target})
  set_property(GLOBAL APPEND PROPERTY TARVO_EXPORTED_TARGETS ${target})
  set_property(GLOBAL APPEND PROPERTY TARVO_PUBLIC_HEADER_DIRS ${ARG_INCLUDE_DIR})
endfunction()

# Bit counts and eight-byte scans are single instructions on every x86-64 machine of the last
# fifteen years (x86-64-v2: POPCNT, SSE4.2), library calls under the first x86-64 baseline.
# Other architectures keep their compiler's default; -DTARVO_X86_64_V2=OFF builds for the oldest.
include(CheckCXXCompilerFlag)
set(tarvo_x86_64_v2_default OFF)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|amd64)$")
  check_cxx_compiler_flag(-march=x86-64-v2 TARVO_COMPILER_TAKES_X86_64_V2)
  set(tarvo_x86_64_v2_default ${TARVO_COMPILER_TAKES_X86_64_V2})
endif()
option(TARVO_X86_64_V2 "Build for x86-64-v2 (POPCNT, SSE4.2) on x86-64" ${tarvo_x86_64_v2_default})
if(TARVO_X86_64_V2)
  add_compile_options(-march=x86-64-v2)
endif()
