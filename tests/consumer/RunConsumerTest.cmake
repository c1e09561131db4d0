# Installs the build into a fresh prefix, builds the consumer project against it and runs it
# with no data directory in the environment.
file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "failed: ${ARGN}\n${out}\n${err}")
  endif()
  message("${out}")
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
# Internal headers stay in the source tree, and the package names no path of this machine.
foreach(internal JsonDocumentFrame.h JsonForwardingHandler.h ConstrSourceScanner.h ConstrPlaceText.h
    JsonInputStream.h HCRapidJsonStreams.h)
  if(EXISTS ${prefix}/include/tarvo_readwrite/${internal})
    message(FATAL_ERROR "the internal header ${internal} is installed")
  endif()
endforeach()
file(GLOB exported ${prefix}/lib*/cmake/tarvo_readwrite/tarvo_readwriteTargets.cmake)
file(READ ${exported} targets)
if(targets MATCHES "/usr/include")
  message(FATAL_ERROR "the exported targets name /usr/include")
endif()
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/consumer -B ${WORK_DIR}/build -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_CXX_COMPILER=${CXX} "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}")
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
unset(ENV{QDS_DATA_DIR})
run(${WORK_DIR}/build/consumer ${SOURCE_DIR}/examples/project_meta.json ${prefix})
file(REMOVE_RECURSE ${WORK_DIR})
