# addon_bundle(NAME SOURCES ... INCLUDES ... EXPORTS names... [RESOURCES folder] [PLIST file])
#
# Builds an add-on as a bundle folder below bin/, the same on every system:
#   NAME.bundle/Contents/<Linux or MacOS>/NAME   the image
#   NAME.bundle/Contents/Info.plist
#   NAME.bundle/Contents/Resources/              the .res definitions of RESOURCES, translations in their folders
#
# The image shows the names of EXPORTS and nothing else: not even the standard library's templates, which would
# otherwise bind to another image's copies. It leaves no symbol unresolved, and whatever it gets from the host it gets
# from hostframeworks; the headers it sees are those of host/include.
function(addon_bundle NAME)
  cmake_parse_arguments(ARG "" "RESOURCES;PLIST" "SOURCES;INCLUDES;EXPORTS" ${ARGN})
  set(CONTENTS ${CMAKE_BINARY_DIR}/bin/${NAME}.bundle/Contents)

  add_library(${NAME} MODULE ${ARG_SOURCES})
  target_include_directories(${NAME} PRIVATE ${ARG_INCLUDES})
  target_link_libraries(${NAME} PRIVATE project_options hostframeworks)
  set(SYSTEM $<IF:$<PLATFORM_ID:Darwin>,MacOS,Linux>)
  set_target_properties(${NAME} PROPERTIES PREFIX "" SUFFIX "" LIBRARY_OUTPUT_DIRECTORY ${CONTENTS}/${SYSTEM})
  export_only(${NAME} ${ARG_EXPORTS})

  file(GLOB_RECURSE DEFINITIONS CONFIGURE_DEPENDS RELATIVE ${ARG_RESOURCES} ${ARG_RESOURCES}/*.res)
  foreach(DEFINITION ${DEFINITIONS})
    copy_into_bundle(${ARG_RESOURCES}/${DEFINITION} ${CONTENTS}/Resources/${DEFINITION})
  endforeach()
  if(ARG_PLIST)
    copy_into_bundle(${ARG_PLIST} ${CONTENTS}/Info.plist)
  endif()
  add_custom_target(${NAME}_files DEPENDS ${BUNDLE_FILES})
  add_dependencies(${NAME} ${NAME}_files)
endfunction()

function(export_only NAME)
  if(APPLE)
    list(TRANSFORM ARGN PREPEND "_")
    list(JOIN ARGN "\n" NAMES)
    set(LIST ${CMAKE_CURRENT_BINARY_DIR}/${NAME}.exports)
    file(CONFIGURE OUTPUT ${LIST} CONTENT "${NAMES}\n")
    target_link_options(${NAME} PRIVATE -Wl,-exported_symbols_list,${LIST})
  else()
    list(JOIN ARGN "; " NAMES)
    set(LIST ${CMAKE_CURRENT_BINARY_DIR}/${NAME}.map)
    file(CONFIGURE OUTPUT ${LIST} CONTENT "{ global: ${NAMES}; local: *; };\n")
    target_link_options(${NAME} PRIVATE -Wl,--version-script=${LIST})
    # clang's sanitizer runtime is in the program only, so its symbols stay open in the image.
    if(NOT SANITIZERS OR NOT CMAKE_CXX_COMPILER_ID MATCHES Clang)
      target_link_options(${NAME} PRIVATE -Wl,-z,defs)
    endif()
  endif()
  set_target_properties(${NAME} PROPERTIES LINK_DEPENDS ${LIST})
endfunction()

macro(copy_into_bundle FROM TO)
  add_custom_command(OUTPUT ${TO} COMMAND ${CMAKE_COMMAND} -E copy ${FROM} ${TO} DEPENDS ${FROM} VERBATIM)
  list(APPEND BUNDLE_FILES ${TO})
endmacro()
