# What is installed where, and the Debian packages: kestrane-configuration (the windows) and
# kestrane-tools (command line and demo unit, no display needed). Manual pages and completions come
# from the programs themselves.
include(GNUInstallDirs)

set(KESTRANE_MAINTAINER "The Kestrane Configuration authors <maintainers@kestrane.example>")
file(STRINGS CHANGELOG.md headings REGEX "^## ${PROJECT_VERSION} - ")
if(NOT headings MATCHES "([0-9]+-[0-9]+-[0-9]+)$")
  message(FATAL_ERROR "CHANGELOG.md has no heading \"## ${PROJECT_VERSION} - DATE\"")
endif()
set(KESTRANE_RELEASE_DATE ${CMAKE_MATCH_1})
execute_process(COMMAND date --utc --rfc-email --date ${KESTRANE_RELEASE_DATE}
                OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE)

# kestrane_compress(<from> <to>): compressed as Debian keeps documents, the same bytes each time.
function(kestrane_compress from to)
  add_custom_command(OUTPUT ${to} COMMAND gzip --best --no-name --stdout ${from} > ${to}
                     DEPENDS ${from} VERBATIM)
endfunction()

# kestrane_install(<component> <package> <program>...): the programs with all that belongs to them.
function(kestrane_install component package)
  set(made ${PROJECT_BINARY_DIR}/packaging)
  install(TARGETS ${ARGN} RUNTIME COMPONENT ${component})
  foreach(program ${ARGN})
    foreach(form man bash zsh fish)
      add_custom_command(OUTPUT ${made}/${program}.${form}
                         COMMAND ${program} --describe ${form} > ${made}/${program}.${form}
                         DEPENDS ${program} VERBATIM)
    endforeach()
    kestrane_compress(${made}/${program}.man ${made}/${program}.1.gz)
    install(FILES ${made}/${program}.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
            COMPONENT ${component})
    install(FILES ${made}/${program}.bash RENAME ${program} COMPONENT ${component}
            DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
    install(FILES ${made}/${program}.zsh RENAME _${program} COMPONENT ${component}
            DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
    install(FILES ${made}/${program}.fish COMPONENT ${component}
            DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
    list(APPEND outputs ${made}/${program}.1.gz ${made}/${program}.bash ${made}/${program}.zsh
         ${made}/${program}.fish)
  endforeach()
  configure_file(packaging/changelog.in ${made}/${package}.changelog @ONLY)
  kestrane_compress(${made}/${package}.changelog ${made}/${package}.changelog.gz)
  set(documents ${CMAKE_INSTALL_DATADIR}/doc/${package})
  install(FILES ${made}/${package}.changelog.gz RENAME changelog.gz DESTINATION ${documents}
          COMPONENT ${component})
  install(FILES packaging/copyright DESTINATION ${documents} COMPONENT ${component})
  add_custom_target(install_files_${component} ALL
                    DEPENDS ${outputs} ${made}/${package}.changelog.gz)
endfunction()

kestrane_install(configuration kestrane-configuration kestrane-config)
kestrane_install(tools kestrane-tools kestrane-cli kestrane-unit)

configure_file(packaging/kestrane-config.metainfo.xml.in
               ${PROJECT_BINARY_DIR}/packaging/com.kestrane.Configuration.metainfo.xml @ONLY)
install(FILES packaging/kestrane-config.desktop COMPONENT configuration
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_BINARY_DIR}/packaging/com.kestrane.Configuration.metainfo.xml
        COMPONENT configuration DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES src/forms/look/kestrane.svg RENAME kestrane-config.svg COMPONENT configuration
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps OPTIONAL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "${KESTRANE_MAINTAINER}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/prepare.cmake)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL configuration tools)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Loaded when needed, so that nothing computes it.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libcurl4")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_CONFIGURATION_PACKAGE_NAME kestrane-configuration)
set(CPACK_DEBIAN_CONFIGURATION_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_CONFIGURATION_DESCRIPTION
    "configure Kestrane mains distribution units in windows
Reads the settings of a Kestrane MDU over TCP into tabs, and writes back what
was edited. A second window edits the unit's macro program, shows its outlets
live and follows the running program.")
set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME kestrane-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_TOOLS_DESCRIPTION
    "configure Kestrane mains distribution units from the command line
kestrane-cli reads and sets a Kestrane MDU from the terminal and from scripts.
kestrane-unit is a demo unit to try it on without hardware. Neither needs a
display.")
include(CPack)
