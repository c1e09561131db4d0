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
