# Two precompiled headers for all targets: what most sources include of the standard library takes
# half of the time that a file needs. The tests have GoogleTest in theirs. Leave VELLUMAR_PCH off to
# see whether each file includes what it uses.

set(library_headers <algorithm> <array> <charconv> <filesystem> <functional> <list> <map> <memory>
  <set> <sstream> <string> <string_view> <unordered_map> <utility> <vector>)

function(precompile folder owner)
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target ${targets})
    get_target_property(type ${target} TYPE)
    if(type MATCHES "STATIC_LIBRARY|EXECUTABLE" AND NOT target STREQUAL owner)
      target_precompile_headers(${target} REUSE_FROM ${owner})
    endif()
  endforeach()
  get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  foreach(sub ${folders})
    if(NOT sub STREQUAL ${PROJECT_SOURCE_DIR}/tests)
      precompile(${sub} ${owner})
    endif()
  endforeach()
endfunction()

target_precompile_headers(vlb PRIVATE ${library_headers})
precompile(${PROJECT_SOURCE_DIR} vlb)
if(VELLUMAR_TESTS)
  target_precompile_headers(test_support PRIVATE ${library_headers} <gtest/gtest.h>)
  precompile(${PROJECT_SOURCE_DIR}/tests test_support)
endif()
