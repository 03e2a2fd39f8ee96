# vellumar_grammar(TARGET FILE.y): adds the tables and actions that Bison makes of FILE.y to TARGET,
# with this project's own skeleton. A line "@include FILE" in the grammar takes in a shared part.
# FILE.conflicts, beside the result, tells the number of conflicts; TARGET and what links to it find
# it in the folder GRAMMAR_DIR.

set(VELLUMAR_SKELETON ${CMAKE_CURRENT_LIST_DIR}/../vlb/parse/lalr.m4)
set(VELLUMAR_MAKE_GRAMMAR ${CMAKE_CURRENT_LIST_DIR}/MakeGrammar.cmake)

function(vellumar_grammar target grammar)
  get_filename_component(source ${grammar} ABSOLUTE)
  if(NOT EXISTS ${source})
    message(WARNING "There is no grammar ${grammar}")
    return()
  endif()
  get_filename_component(name ${grammar} NAME_WE)
  get_filename_component(folder ${source} DIRECTORY)
  set(result ${CMAKE_CURRENT_BINARY_DIR}/${name}.tab.cc)
  set(conflicts ${CMAKE_CURRENT_BINARY_DIR}/${name}.conflicts)
  file(STRINGS ${source} lines REGEX "^@include ")
  list(TRANSFORM lines REPLACE "^@include +([^ ]+) *$" "${folder}/\\1")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
  add_custom_command(
    OUTPUT ${result} ${conflicts}
    COMMAND ${CMAKE_COMMAND} -DBISON=${BISON_EXECUTABLE} -DSKELETON=${VELLUMAR_SKELETON}
            -DGRAMMAR=${source} -DRESULT=${result} -DCONFLICTS=${conflicts}
            -P ${VELLUMAR_MAKE_GRAMMAR}
    DEPENDS ${source} ${lines} ${VELLUMAR_SKELETON} ${VELLUMAR_MAKE_GRAMMAR}
    COMMENT "Making the tables of ${grammar}"
    VERBATIM)
  target_sources(${target} PRIVATE ${result})
  target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
  target_compile_definitions(${target} PUBLIC GRAMMAR_DIR="${CMAKE_CURRENT_BINARY_DIR}")
endfunction()
