# install_program(TARGET COMPONENT): a program into the folder that the shipped defaults lie in, with a
# link to it among the programs of the system.
include(GNUInstallDirs)
set(program_dir ${CMAKE_INSTALL_LIBDIR}/vellumar)

function(install_program target component)
  install(TARGETS ${target} RUNTIME DESTINATION ${program_dir} COMPONENT ${component})
  file(RELATIVE_PATH to_program /${CMAKE_INSTALL_BINDIR} /${program_dir}/${target})
  install(CODE "
    set(bin \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
    file(MAKE_DIRECTORY \"\${bin}\")
    file(CREATE_LINK ${to_program} \"\${bin}/${target}\" SYMBOLIC)" COMPONENT ${component})
endfunction()
