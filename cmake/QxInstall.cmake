# Installs the library with what others need to find it: a CMake package and a pkg-config module, both of
# which may be moved together with the installed tree.
#
# A stand-in sibling is installed with the library. A sibling from a package is found again by whoever uses
# the library: CMake and pkg-config look for it under the name of that package.

include(CMakePackageConfigHelpers)

# Relative, since CMake 3.25 exports the directory of headers with the prefix before it, even one that is
# absolute.
file(RELATIVE_PATH CMAKE_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/qx)
set(installed_targets qx)
set(QX_FIND_SIBLINGS "")
set(QX_PC_REQUIRES "")
set(QX_PC_LIBS -lqx)
set(QX_PC_DEFINES "")
set(QX_PC_IO_DEFINES "")
if(NOT BUILD_SHARED_LIBS)
    set(QX_PC_DEFINES " -DQX_STATIC")
    set(QX_PC_IO_DEFINES " -DQXIO_STATIC")
endif()

foreach(sibling IN ITEMS datetime base) # in the order in which a static library needs them
    string(TOUPPER ${sibling} name)
    if(QX_${name}_PACKAGE)
        string(APPEND QX_FIND_SIBLINGS "find_dependency(${QX_${name}_PACKAGE} CONFIG)\n")
        list(APPEND QX_PC_REQUIRES ${QX_${name}_PACKAGE})
        continue()
    endif()
    get_target_property(standin qx::${sibling} ALIASED_TARGET)
    if(NOT standin STREQUAL "qx${sibling}")
        message(FATAL_ERROR
            "QX_INSTALL needs qx::${sibling} as the stand-in or from QX_${name}_PACKAGE, not made by a parent project")
    endif()
    list(APPEND installed_targets ${standin})
    list(APPEND QX_PC_LIBS -l${standin})
    if(NOT BUILD_SHARED_LIBS)
        string(APPEND QX_PC_DEFINES " -DQX${name}_STATIC")
    endif()
endforeach()
list(JOIN QX_PC_LIBS " " QX_PC_LIBS)
list(JOIN QX_PC_REQUIRES " " QX_PC_REQUIRES)
file(RELATIVE_PATH QX_PC_TO_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" QX_PC_TO_PREFIX "${QX_PC_TO_PREFIX}")
file(RELATIVE_PATH QX_PC_LIBDIR ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
set(QX_PC_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR})
foreach(dir IN ITEMS TO_PREFIX LIBDIR INCLUDEDIR)
    string(REPLACE " " "\\ " QX_PC_${dir} "${QX_PC_${dir}}")
endforeach()

# What programs need to run is the component runtime, what building them takes the component development.
install(TARGETS ${installed_targets} EXPORT qxTargets
    RUNTIME COMPONENT runtime
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE COMPONENT development
    FILE_SET HEADERS COMPONENT development)
if(TARGET qxio) # on its own, so that it is found only where it is asked for
    install(TARGETS qxio EXPORT qxIoTargets
        RUNTIME COMPONENT runtime
        LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
        ARCHIVE COMPONENT development
        FILE_SET HEADERS COMPONENT development)
    install(EXPORT qxIoTargets NAMESPACE qx:: DESTINATION ${package_dir} COMPONENT development)
endif()
install(EXPORT qxTargets NAMESPACE qx:: DESTINATION ${package_dir} COMPONENT development)
if(qx_gdb_script)
    install(FILES ${qx_gdb_script}
        DESTINATION ${CMAKE_INSTALL_DATADIR}/gdb/auto-load${CMAKE_INSTALL_FULL_LIBDIR}
        RENAME libqx.so.${PROJECT_VERSION}-gdb.py
        COMPONENT runtime)
endif()

configure_package_config_file(cmake/qxConfig.cmake.in qxConfig.cmake
    INSTALL_DESTINATION ${package_dir}
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(qxConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/qxConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/qxConfigVersion.cmake
    DESTINATION ${package_dir}
    COMPONENT development)

configure_file(cmake/qx.pc.in qx.pc @ONLY)
set(pc_files ${CMAKE_CURRENT_BINARY_DIR}/qx.pc)
if(TARGET qxio)
    configure_file(cmake/qxio.pc.in qxio.pc @ONLY)
    list(APPEND pc_files ${CMAKE_CURRENT_BINARY_DIR}/qxio.pc)
endif()
install(FILES ${pc_files} DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT development)

# The component tool: qxtab, which finds the libraries wherever the tree is installed, with what shells and man
# know of it. Man pages are installed as Debian wants them, compressed without a time.
if(TARGET qxtab)
    file(RELATIVE_PATH to_libraries ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
    set_target_properties(qxtab PROPERTIES INSTALL_RPATH $ORIGIN/${to_libraries})
    install(TARGETS qxtab RUNTIME COMPONENT tool)
endif()
if(TARGET qxtab AND UNIX)
    set(qxtab_source ${PROJECT_SOURCE_DIR}/examples/qxtab)
    find_program(QX_GZIP gzip)
    if(QX_GZIP)
        set(page ${CMAKE_CURRENT_BINARY_DIR}/qxtab.1.gz)
        add_custom_command(OUTPUT ${page}
            COMMAND sh -c "'${QX_GZIP}' -9nc '${qxtab_source}/qxtab.1' >'${page}'"
            DEPENDS ${qxtab_source}/qxtab.1 VERBATIM)
        add_custom_target(qxtab_page ALL DEPENDS ${page})
    else()
        set(page ${qxtab_source}/qxtab.1)
    endif()
    install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool)
    install(FILES ${qxtab_source}/qxtab.bash RENAME qxtab OPTIONAL
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tool)
    install(FILES ${qxtab_source}/_qxtab OPTIONAL
        DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions COMPONENT tool)
endif()

if(QX_BUILD_MANUAL)
    install(DIRECTORY ${PROJECT_BINARY_DIR}/html DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT manual)
endif()
