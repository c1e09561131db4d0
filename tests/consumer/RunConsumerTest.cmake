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

# The README's example, built against the same prefix: it reads, walks and writes back both
# documents unchanged, and names a missing file instead of ending in terminate.
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples/cpp -B ${WORK_DIR}/example -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_CXX_COMPILER=${CXX} "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}")
run(${CMAKE_COMMAND} --build ${WORK_DIR}/example)
file(MAKE_DIRECTORY ${WORK_DIR}/out)
execute_process(COMMAND ${WORK_DIR}/example/tarvo_example ${SOURCE_DIR}/examples/project_meta.json
    ${SOURCE_DIR}/examples/noc_traffic.json ${WORK_DIR}/out RESULT_VARIABLE result OUTPUT_VARIABLE out)
set(expected "interface kpe0_pl_intf, 6 properties: KPE_PL_INTF_ID KPE_PL_INTF_ID_STR project.clock.mhz \
project.kernels project.noc.enabled project.trace.bytes
5 instances, 3 paths (100% read)
  top/cpu/m_axi_0 -> top/ddr_mc
  top/rp_video/dma/m_axi -> top/ddr_mc
  top/kpe/noc_out_0 -> top/pl_sink/s_axis
")
if(NOT result EQUAL 0 OR NOT out STREQUAL expected)
  message(FATAL_ERROR "example: exit ${result}, printed\n${out}")
endif()
foreach(document project_meta.json noc_traffic.json)
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${SOURCE_DIR}/examples/${document} ${WORK_DIR}/out/${document}
    RESULT_VARIABLE differs)
  if(differs)
    message(FATAL_ERROR "example: ${document} is not written back unchanged")
  endif()
endforeach()
execute_process(COMMAND ${WORK_DIR}/example/tarvo_example ${WORK_DIR}/missing.json
    ${SOURCE_DIR}/examples/noc_traffic.json ${WORK_DIR}/out RESULT_VARIABLE result ERROR_VARIABLE err)
if(NOT result EQUAL 1 OR NOT err MATCHES "^ERROR: \\[tarvo 8-100\\] Cannot read JSON file '${WORK_DIR}/missing.json'")
  message(FATAL_ERROR "example on a missing file: exit ${result}, printed\n${err}")
endif()
file(REMOVE_RECURSE ${WORK_DIR})
