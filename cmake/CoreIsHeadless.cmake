# The core and its test binary must stay free of Qt and RtMidi: they link
# nothing but each other, GoogleTest and the standard library. Checked when the
# project is configured, so a stray dependency fails the build at once.
function(assert_links_only_standard_library target)
  set(allowed ${ARGN})
  get_target_property(libs ${target} LINK_LIBRARIES)
  if(NOT libs)
    return()
  endif()
  foreach(lib IN LISTS libs)
    if(NOT lib IN_LIST allowed)
      message(FATAL_ERROR "${target} links ${lib}; the headless core may link only: ${allowed}")
    endif()
  endforeach()
endfunction()
