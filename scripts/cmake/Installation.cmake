# What `cmake --install` puts where, in three components that become three packages:
#   cli      bin/modelhost, libexec/modelhost/ (program, library, add-on), manual pages, completions
#   desktop  bin/modelhost-desktop, libexec/modelhost/modelhost-desktop, icon, desktop entry, file types
#   doc      share/doc/modelhost-doc/
#
# A program finds its library and the add-on beside itself, so all of them stand in one folder, and bin/ leads there by
# links. Nothing installed names a place: a prefix can be moved as a whole.
set(HOME_FOLDER libexec/modelhost)
set(PACKAGE_CONTACT "Quillmarsh <modelhost@quillmarsh.com>" CACHE STRING "Who answers for the packages")

set(INSTALLED ${CMAKE_BINARY_DIR}/installed)

# link_in_bin(NAME COMPONENT)
function(link_in_bin NAME COMPONENT)
  file(MAKE_DIRECTORY ${INSTALLED}/bin)
  file(CREATE_LINK ../${HOME_FOLDER}/${NAME} ${INSTALLED}/bin/${NAME} SYMBOLIC)
  install(FILES ${INSTALLED}/bin/${NAME} DESTINATION bin COMPONENT ${COMPONENT})
endfunction()

# debian_files(PACKAGE COMPONENT): what Debian wants to find in each package.
function(debian_files PACKAGE COMPONENT)
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/copyright DESTINATION share/doc/${PACKAGE} COMPONENT ${COMPONENT})
  install(FILES ${INSTALLED}/changelog.gz DESTINATION share/doc/${PACKAGE} COMPONENT ${COMPONENT})
endfunction()

set_target_properties(modelhost PROPERTIES INSTALL_RPATH "$ORIGIN")
set_target_properties(ZUNACAddin19 PROPERTIES INSTALL_RPATH "$ORIGIN/../../..")
install(TARGETS modelhost RUNTIME DESTINATION ${HOME_FOLDER} COMPONENT cli)
install(TARGETS hostframeworks LIBRARY DESTINATION ${HOME_FOLDER} COMPONENT cli)
install(TARGETS ZUNACAddin19 LIBRARY DESTINATION ${HOME_FOLDER}/ZUNACAddin19.bundle/Contents/Linux COMPONENT cli)
install(FILES ${PROJECT_SOURCE_DIR}/resources/Info.plist
  DESTINATION ${HOME_FOLDER}/ZUNACAddin19.bundle/Contents COMPONENT cli)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/resources/
  DESTINATION ${HOME_FOLDER}/ZUNACAddin19.bundle/Contents/Resources COMPONENT cli FILES_MATCHING PATTERN "*.res")
link_in_bin(modelhost cli)
debian_files(modelhost cli)

# Manual pages and completions are made by the program from the description that its help is made from.
set(PAGES ${INSTALLED}/pages)
add_custom_command(OUTPUT ${PAGES}.made
  COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:modelhost> -DPAGES=${PAGES}
    -DOTHERS=${PROJECT_SOURCE_DIR}/packaging/modelhost-desktop.1 -P ${CMAKE_CURRENT_LIST_DIR}/MakePages.cmake
  COMMAND ${CMAKE_COMMAND} -E touch ${PAGES}.made
  DEPENDS modelhost ${CMAKE_CURRENT_LIST_DIR}/MakePages.cmake ${PROJECT_SOURCE_DIR}/packaging/modelhost-desktop.1
  VERBATIM)
add_custom_target(pages ALL DEPENDS ${PAGES}.made)
install(DIRECTORY ${PAGES}/man1/ DESTINATION share/man/man1 COMPONENT cli
  FILES_MATCHING PATTERN "*.gz" PATTERN "modelhost-desktop.1.gz" EXCLUDE)
install(FILES ${PAGES}/modelhost.bash DESTINATION share/bash-completion/completions RENAME modelhost COMPONENT cli)
install(FILES ${PAGES}/modelhost.zsh DESTINATION share/zsh/vendor-completions RENAME _modelhost COMPONENT cli)
install(FILES ${PAGES}/modelhost.fish DESTINATION share/fish/vendor_completions.d COMPONENT cli)

if(BUILD_DESKTOP)
  set_target_properties(modelhost-desktop PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS modelhost-desktop RUNTIME DESTINATION ${HOME_FOLDER} COMPONENT desktop)
  link_in_bin(modelhost-desktop desktop)
  install(FILES packaging/modelhost-desktop.desktop DESTINATION share/applications COMPONENT desktop)
  install(FILES packaging/modelhost-desktop.svg DESTINATION share/icons/hicolor/scalable/apps COMPONENT desktop)
  install(FILES packaging/modelhost.xml DESTINATION share/mime/packages COMPONENT desktop)
  install(FILES ${PAGES}/man1/modelhost-desktop.1.gz DESTINATION share/man/man1 COMPONENT desktop)
  debian_files(modelhost-desktop desktop)
endif()

install(FILES README.md CONTRIBUTING.md CHANGELOG.md DESTINATION share/doc/modelhost-doc COMPONENT doc)
install(DIRECTORY docs samples DESTINATION share/doc/modelhost-doc COMPONENT doc)
debian_files(modelhost-doc doc)

configure_file(packaging/changelog.in ${INSTALLED}/changelog @ONLY)
execute_process(COMMAND gzip -9nc ${INSTALLED}/changelog
  OUTPUT_FILE ${INSTALLED}/changelog.gz COMMAND_ERROR_IS_FATAL ANY)

# --- Packages: cpack -G DEB ---
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME modelhost)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "${PACKAGE_CONTACT}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL cli doc)
if(BUILD_DESKTOP)
  list(APPEND CPACK_COMPONENTS_ALL desktop)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
# What the programs are linked with is found by dpkg-shlibdeps; the library of their own it finds here.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/bin)
set(CPACK_DEBIAN_CLI_PACKAGE_NAME modelhost)
set(CPACK_COMPONENT_CLI_DESCRIPTION "apply reviewed updates to IFC building models
modelhost opens an IFC model, shows proposed changes beside the values that
the model holds, and applies those that are ticked. It also lists elements and
their data, writes them as tables, and acts from scripts.")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME modelhost-desktop)
set(CPACK_COMPONENT_DESKTOP_DESCRIPTION "review updates of IFC building models in a window
The window of modelhost: the elements of an IFC model with their data, a plan,
and the review of proposed changes.")
# The same program text runs in both, so that one may not be newer than the other.
# Qt's own texts, on the buttons of its dialogs, come with a package of their own.
set(CPACK_DEBIAN_DESKTOP_PACKAGE_DEPENDS "modelhost (= ${PROJECT_VERSION}), qt6-translations-l10n")
set(CPACK_DEBIAN_DOC_PACKAGE_NAME modelhost-doc)
set(CPACK_COMPONENT_DOC_DESCRIPTION "documentation and samples of modelhost
What modelhost and modelhost-desktop do, how update files and tables are read,
and a small house to try it on.")
set(CPACK_DEBIAN_DOC_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DOC_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOC_PACKAGE_SECTION doc)
include(CPack)
