# What an installation holds, by component, and the packages made of it.
#
# The program lives in a folder of its own, lib/kdhost, laid out as the build tree is: bin, lib, plugins and docs beside
# one another, so that it finds its modules and its help the same way in both. A link in bin/ starts it.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(home ${CMAKE_INSTALL_LIBDIR}/kdhost)
set(pages ${CMAKE_INSTALL_DATADIR}/kdhost/docs)
set(packaging ${CMAKE_SOURCE_DIR}/packaging)

# A symbolic link, as it stands in the installation.
function(install_link target link component)
    get_filename_component(folder ${link} DIRECTORY)
    install(CODE "
        set(root \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}\")
        file(MAKE_DIRECTORY \"\${root}/${folder}\")
        file(CREATE_LINK \"${target}\" \"\${root}/${link}\" SYMBOLIC)"
        COMPONENT ${component})
endfunction()

# program: the host, its icon and its place in menus
set_target_properties(kdhost PROPERTIES INSTALL_RPATH "$ORIGIN/../lib")
install(TARGETS kdhost RUNTIME DESTINATION ${home}/bin COMPONENT program)
install(TARGETS kdhost_core LIBRARY DESTINATION ${home}/lib COMPONENT program)
file(RELATIVE_PATH from_bin /${CMAKE_INSTALL_BINDIR} /${home}/bin/kdhost)
install_link(${from_bin} ${CMAKE_INSTALL_BINDIR}/kdhost program)
install(FILES ${packaging}/kdhost.desktop ${packaging}/kdhost-open.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT program)
install(FILES ${packaging}/kdhost.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
        COMPONENT program)
install(FILES ${packaging}/kdhost.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT program)
install(FILES ${packaging}/kdhost.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)

# module: the table module and its resources
set_target_properties(TvxTable PROPERTIES INSTALL_RPATH "$ORIGIN/../lib")
install(TARGETS TvxTable TvxTableRes LIBRARY DESTINATION ${home}/plugins COMPONENT module)

# help: the pages that the program shows
install(DIRECTORY docs/help docs/guide DESTINATION ${pages} COMPONENT help)
install(FILES docs/scripts.md docs/drawing-files.md DESTINATION ${pages} COMPONENT help)
file(RELATIVE_PATH from_home /${home} /${pages})
install_link(${from_home} ${home}/docs help)

# sdk: the contract's headers, for those who build modules outside of this tree
install(DIRECTORY sdk/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kdhost COMPONENT sdk)
set(config ${CMAKE_CURRENT_BINARY_DIR}/package)
set(include_folder ${CMAKE_INSTALL_INCLUDEDIR}/kdhost)
set(library ${home}/lib/libkdhost_core.so)
set(program ${home}/bin/kdhost)
set(modules ${home}/plugins)
set(config_folder ${CMAKE_INSTALL_LIBDIR}/cmake/kdhost)
configure_package_config_file(${packaging}/kdhost-config.cmake.in ${config}/kdhost-config.cmake
    INSTALL_DESTINATION ${config_folder} PATH_VARS include_folder library program modules)
write_basic_package_version_file(${config}/kdhost-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${config}/kdhost-config.cmake ${config}/kdhost-config-version.cmake ${packaging}/kdhost-module.cmake
        DESTINATION ${config_folder} COMPONENT sdk)

# docs: all pages, and the example of a module
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kdhost/docs COMPONENT docs)
install(DIRECTORY examples/module DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kdhost/examples COMPONENT docs)

# Debian packages: the program with its module and help, the headers, the pages.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kdhost)
set(CPACK_PACKAGE_CONTACT "The developers of kdhost <kdhost@example.org>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME kdhost)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
# The fonts that texts are measured with; sizes are the same on each machine.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "fonts-dejavu-core, fonts-droid-fallback")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "CAD program with tables
Draws and edits tables: styles, borders, formulas, CSV files in and out, scripts,
and runs without a display, too. Holds the table module and the help.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME kdhost-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "kdhost (>= ${PROJECT_VERSION}), qtbase5-dev")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "headers to build modules of kdhost with
The contract between the program and its modules, and a package for CMake.")

set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_NAME kdhost-doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOCUMENTATION_DESCRIPTION "guides to kdhost and its modules
The user's guide, the guide to the sdk with an example, the architecture.")

# The packages hold what was built for them; a package of everything else isn't wanted first.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)

include(CPack)
cpack_add_component_group(runtime)
cpack_add_component_group(development)
cpack_add_component_group(documentation)
foreach(component program module help)
    cpack_add_component(${component} GROUP runtime)
endforeach()
cpack_add_component(sdk GROUP development)
cpack_add_component(docs GROUP documentation)
