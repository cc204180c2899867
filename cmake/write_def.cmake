# cmake -DNAMES=<list> -DLIBRARY=<dll> -DOUTPUT=<file> -P write_def.cmake: a module definition with the names of the list.
file(STRINGS ${NAMES} names)
list(JOIN names "\n    " names)
file(WRITE ${OUTPUT} "LIBRARY ${LIBRARY}\nEXPORTS\n    ${names}\n")
