# One grammar to its C++ source, as a step of the build: takes in shared parts, runs Bison, counts
# the conflicts. Wants BISON, SKELETON, GRAMMAR, RESULT and CONFLICTS.

# Line directives lead messages to the file that a line came from.
file(READ ${GRAMMAR} text)
get_filename_component(folder ${GRAMMAR} DIRECTORY)
while("\n${text}" MATCHES "\n(@include +([^ \n]+) *)\n")
  set(line "${CMAKE_MATCH_1}")
  set(part ${folder}/${CMAKE_MATCH_2})
  string(FIND "${text}" "${line}" position)
  string(SUBSTRING "${text}" 0 ${position} before)
  string(LENGTH "${line}" length)
  math(EXPR position "${position} + ${length}")
  string(SUBSTRING "${text}" ${position} -1 behind)
  string(REGEX MATCHALL "\n" line_feeds "${before}")
  list(LENGTH line_feeds number)
  math(EXPR number "${number} + 2")
  file(READ ${part} included)
  string(CONCAT text "${before}" "#line 1 \"${part}\"\n" "${included}"
         "#line ${number} \"${GRAMMAR}\"" "${behind}")
endwhile()
file(WRITE ${RESULT}.y "#line 1 \"${GRAMMAR}\"\n${text}")

# Default reductions only where a state has nothing else to do: the driver relies on it. Conflicts
# are counted below, and pinned by tests. Types that are left out on one side of a default action
# are no fault, since values carry their type.
execute_process(
  COMMAND ${BISON} -Flr.default-reduction=consistent -Wno-conflicts-sr -Wno-conflicts-rr
          --skeleton=${SKELETON} --report=state --report-file=${RESULT}.report
          --output=${RESULT} ${RESULT}.y
  RESULT_VARIABLE failed
  ERROR_VARIABLE messages)
if(failed OR messages MATCHES "type clash on default action: <[^>\n][^\n]*> != <[^>\n]")
  file(REMOVE ${RESULT})
  message(FATAL_ERROR "${messages}")
endif()

file(READ ${RESULT}.report report)
if(report MATCHES "useless in grammar")
  file(REMOVE ${RESULT})
  message(FATAL_ERROR "Rules that can't be reached:\n${messages}")
endif()
set(count_shift 0)
set(count_reduce 0)
foreach(kind shift reduce)
  string(REGEX MATCHALL "\nState [0-9]+ conflicts: [^\n]*" states "\n${report}")
  foreach(state IN LISTS states)
    if(state MATCHES "([0-9]+) ${kind}/reduce")
      math(EXPR count_${kind} "${count_${kind}} + ${CMAKE_MATCH_1}")
    endif()
  endforeach()
endforeach()
file(WRITE ${CONFLICTS} "${count_shift} shift/reduce, ${count_reduce} reduce/reduce\n")
