# What every Windows program of ours carries: the manifest (8-bit text is UTF-8, long paths, sharp
# on every scaling), the icon and the version. Does nothing for other systems.
set(KESTREL_WINDOWS ${CMAKE_CURRENT_LIST_DIR})
function(kestrel_windows_resources target description)
  if(WIN32)
    set(resources ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
    configure_file(${KESTREL_WINDOWS}/kestrel.rc.in ${resources} @ONLY)
    target_sources(${target} PRIVATE ${resources})
  endif()
endfunction()
