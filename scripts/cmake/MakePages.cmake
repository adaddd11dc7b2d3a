# cmake -DPROGRAM=modelhost -DPAGES=folder -DOTHERS=page -P MakePages.cmake
# Makes the manual pages, packed as Debian wants them, and the completions.
function(say_into FILE)
  execute_process(COMMAND ${PROGRAM} ${ARGN} OUTPUT_FILE ${FILE} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(pack FILE)
  execute_process(COMMAND gzip -9nf ${FILE} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${PAGES})
file(MAKE_DIRECTORY ${PAGES}/man1)
foreach(SHELL bash zsh fish)
  say_into(${PAGES}/modelhost.${SHELL} completion ${SHELL})
endforeach()
say_into(${PAGES}/man1/modelhost.1 help --man)
pack(${PAGES}/man1/modelhost.1)

execute_process(COMMAND ${PROGRAM} help OUTPUT_VARIABLE HELP COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE ".*\nCommands:\n" "" HELP "${HELP}")
string(REGEX REPLACE "\n\n.*" "\n" HELP "${HELP}")
string(REGEX MATCHALL "(^|\n)  [a-z]+ " COMMANDS "${HELP}")
foreach(COMMAND ${COMMANDS})
  string(STRIP "${COMMAND}" COMMAND)
  say_into(${PAGES}/man1/modelhost-${COMMAND}.1 help ${COMMAND} --man)
  pack(${PAGES}/man1/modelhost-${COMMAND}.1)
endforeach()

foreach(PAGE ${OTHERS})
  file(COPY ${PAGE} DESTINATION ${PAGES}/man1)
  get_filename_component(NAME ${PAGE} NAME)
  pack(${PAGES}/man1/${NAME})
endforeach()
