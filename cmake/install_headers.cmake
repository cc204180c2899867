# Installs `headers` of the folder `sources` below `include`: all that is the library's has one name, dlglib/, in front of it. platform/
# becomes dlglib/platform/, in the headers' own includes too, and programs that include the former paths find a header there that leads
# to the new one. Suite headers that come with another package (they are not among `headers` then) keep their place.
foreach(header IN LISTS headers)
  file(READ ${sources}/${header} text)
  foreach(other IN LISTS headers)
    if(other MATCHES "^platform/")
      string(REPLACE "#include \"${other}\"" "#include \"dlglib/${other}\"" text "${text}")
    endif()
  endforeach()
  if(header MATCHES "^platform/")
    file(WRITE ${include}/${header} "// Stands at dlglib/${header} now.
#pragma once

#include \"dlglib/${header}\"
")
    set(header dlglib/${header})
  endif()
  message(STATUS "Installing: ${include}/${header}")
  file(WRITE ${include}/${header} "${text}")
endforeach()
