# The Debian package: the target `deb`, or `cpack --preset release` once all is built, makes orv_VERSION_ARCHITECTURE.deb
# of whatever is installed. The same sources give the same bytes, in whatever folder and whenever they are built (cpack alone
# writes the modes of its three pieces by the umask: the usual one, 022, is that of the target).
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orv)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The ORV developers <apoio@orv.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "people and families of a Portuguese parish from its registers")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "ORV takes the registers of one Portuguese parish (baptisms, marriages, burials,\npassports) into one file, and puts \
people and families together again from\ntheir acts. It tells what contradicts and who may be the same person, and\n\
makes the tables and charts of a study in historical demography.\n\nThe windows and the manual are in Portuguese. \
orv-estudo does the work of a\nstudy from the shell: imports, exports, checks and reports.")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What no program is linked to: the platform of Wayland, without which it ends there, and the toolkit's own texts.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-wayland, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS xdg-utils) # opens documents
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_THREADS 1) # pieces that are packed side by side depend on how many there are

# Read again by cpack, which sets the dates of all that is packed.
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_SOURCE_DIR}/cpack.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/staged.cmake)
set(CPACK_ORV_RELEASE_SECONDS ${ORV_RELEASE_SECONDS})
include(CPack)

if(NOT TARGET manuals)
    add_custom_target(deb COMMAND ${CMAKE_COMMAND} -E echo
            "No package without its manuals: python3-markdown or weasyprint is missing. Install them and configure again."
        COMMAND ${CMAKE_COMMAND} -E false VERBATIM)
    return()
endif()
add_custom_target(deb COMMAND sh -c "umask 022 && exec \"$0\"" ${CMAKE_CPACK_COMMAND}
    WORKING_DIRECTORY ${CMAKE_BINARY_DIR} USES_TERMINAL VERBATIM)
add_dependencies(deb orv orv-estudo program_folder demo icons-apps icons-mimetypes compressed manuals)
