# Headers, libraries, data and a CMake package, relocatable under any prefix.
include(CMakePackageConfigHelpers)

get_property(exported GLOBAL PROPERTY TARVO_EXPORTED_TARGETS)
get_property(header_dirs GLOBAL PROPERTY TARVO_PUBLIC_HEADER_DIRS)

install(TARGETS tarvo_rapidjson ${exported} EXPORT tarvo_readwriteTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
foreach(dir ${header_dirs})
  install(DIRECTORY ${dir}/ DESTINATION ${TARVO_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
endforeach()
# <tarvo_readwrite.h> with only PREFIX/include on the path.
install(FILES ${PROJECT_SOURCE_DIR}/cmake/tarvo_readwrite.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/ DESTINATION ${TARVO_INSTALL_DATADIR})

install(EXPORT tarvo_readwriteTargets NAMESPACE tarvo::
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tarvo_readwrite)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/tarvo_readwriteConfig.cmake.in
  ${PROJECT_BINARY_DIR}/tarvo_readwriteConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tarvo_readwrite)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/tarvo_readwriteConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/tarvo_readwriteConfig.cmake
  ${PROJECT_BINARY_DIR}/tarvo_readwriteConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tarvo_readwrite)
