# A run makes and drops millions of small objects on several threads, which jemalloc does in some three
# quarters of the C library's time. Sanitizers have an allocator of their own.
option(VELLUMAR_JEMALLOC "Allocate with jemalloc where it is there" ON)
if(VELLUMAR_JEMALLOC AND NOT VELLUMAR_SANITIZE)
  find_library(JEMALLOC jemalloc)
endif()

# Before all that `target` links, so that the C++ library takes its operators new and delete, too.
function(link_allocator target)
  if(JEMALLOC AND NOT VELLUMAR_SANITIZE)
    target_link_libraries(${target} PRIVATE ${JEMALLOC})
  endif()
endfunction()
