# Checks that the shared LIBRARIES define no symbols for others but those of our namespace.

foreach(library IN LISTS LIBRARIES)
    execute_process(COMMAND ${NM} --dynamic --defined-only --format=posix ${library}
        OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX MATCHALL "[^\n]+" symbols "${symbols}")
    list(LENGTH symbols count)
    list(FILTER symbols EXCLUDE REGEX "^_Z(T[ISTV]|T[chv][0-9n_]+|GV)?NK?[RO]?5norel")
    if(symbols OR count EQUAL 0)
        list(JOIN symbols "\n" symbols)
        message(SEND_ERROR "${library} exports ${count} symbols, of which these should stay inside:\n${symbols}")
    endif()
endforeach()
