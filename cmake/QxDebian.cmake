# The Debian packages: the shared libraries, the files for building with them, qxtab and the manual, with the debug
# symbols of what is compiled beside them. lintian has no error to tell of them.

find_program(QX_GZIP gzip REQUIRED)
get_target_property(soversion qx SOVERSION)
set(debian_revision 1)
set(debian_version ${PROJECT_VERSION}-${debian_revision})
set(texts ${CMAKE_CURRENT_BINARY_DIR}/debian)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX}) # the path of GDB's views depends on it
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${debian_revision})
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS # whatever the umask is
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    ${CMAKE_CURRENT_BINARY_DIR}
    ${CMAKE_CURRENT_BINARY_DIR}/siblings/base
    ${CMAKE_CURRENT_BINARY_DIR}/siblings/datetime
    ${CMAKE_CURRENT_BINARY_DIR}/io)

# A minor version may break while the version is 0.x, so that two of them can be installed side by side.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libqx${soversion})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(libraries ${installed_targets})
if(TARGET qxio)
    list(APPEND libraries qxio)
endif()
set(shlibs "")
foreach(target IN LISTS libraries)
    string(APPEND shlibs "lib${target} ${soversion} libqx${soversion} (>= ${debian_version})\n")
endforeach()
file(CONFIGURE OUTPUT ${texts}/shlibs CONTENT "${shlibs}" @ONLY)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${texts}/shlibs ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "The shared libraries that programs need to run.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libqx-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
string(REGEX MATCH "^[0-9]+" compiler_major "${CMAKE_CXX_COMPILER_VERSION}")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "libqx${soversion} (= ${debian_version}), libstdc++-${compiler_major}-dev | libstdc++-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "The headers, with what CMake and pkg-config need to find the libraries.")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME qxtab)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOL_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_TOOL_PACKAGE_DEPENDS "libqx${soversion} (>= ${debian_version})")
set(CPACK_COMPONENT_TOOL_DESCRIPTION "The program qxtab, which works on tables in files.")

set(CPACK_DEBIAN_MANUAL_PACKAGE_NAME libqx-doc)
set(CPACK_DEBIAN_MANUAL_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_MANUAL_PACKAGE_ARCHITECTURE all)
set(CPACK_COMPONENT_MANUAL_DESCRIPTION "The manual, to be read in a browser.")

# The debug symbols, which GDB needs to show cells and tables, are packages of their own. It finds them by the id of
# the build; cpack's own packages of them lack what Debian wants every package to have.
set(CPACK_STRIP_FILES ON)
function(package_symbols component package)
    if(NOT CMAKE_BUILD_TYPE MATCHES "Deb")
        return()
    endif()
    foreach(target IN LISTS ARGN)
        install(CODE "
            set(file \"$<TARGET_FILE:${target}>\")
            set(objcopy \"${CMAKE_OBJCOPY}\")
            set(readelf \"${CMAKE_READELF}\")
            include(\"${PROJECT_SOURCE_DIR}/cmake/InstallSymbols.cmake\")" COMPONENT ${component})
    endforeach()
    string(TOUPPER ${component} name)
    set(CPACK_DEBIAN_${name}_PACKAGE_NAME ${package}-dbgsym PARENT_SCOPE)
    set(CPACK_DEBIAN_${name}_PACKAGE_SECTION debug PARENT_SCOPE)
    set(CPACK_DEBIAN_${name}_PACKAGE_DEPENDS "${package} (= ${debian_version})" PARENT_SCOPE)
    set(CPACK_COMPONENT_${name}_DESCRIPTION "The debug symbols of ${package}." PARENT_SCOPE)
    set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)
endfunction()
package_symbols(runtime_symbols libqx${soversion} ${libraries})
if(TARGET qxtab)
    package_symbols(tool_symbols qxtab qxtab)
endif()

# What Debian wants to know of every package: who may do what with it, and what changed.
file(STRINGS cmake/debian/changelog last_release LIMIT_COUNT 1)
if(NOT last_release MATCHES "^qx \\(${debian_version}\\) ")
    message(FATAL_ERROR "cmake/debian/changelog does not begin with version ${debian_version}")
endif()
function(compress source target)
    execute_process(COMMAND ${QX_GZIP} -9nc ${source} OUTPUT_FILE ${texts}/${target} COMMAND_ERROR_IS_FATAL ANY)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
endfunction()
compress(${PROJECT_SOURCE_DIR}/cmake/debian/changelog changelog.Debian.gz)
compress(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog.gz)

# The library holds code of one that consists of headers: what its authors ask for goes with it.
file(READ cmake/debian/copyright copyright)
file(WRITE ${texts}/copyright "${copyright}")
if(EXISTS /usr/share/doc/rapidjson-dev/copyright)
    file(READ /usr/share/doc/rapidjson-dev/copyright theirs)
    file(APPEND ${texts}/copyright "\nlibqxio holds code of rapidjson-dev, whose copyright file is:\n\n${theirs}")
endif()

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${component} name)
    install(FILES ${texts}/copyright ${texts}/changelog.gz ${texts}/changelog.Debian.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${name}_PACKAGE_NAME}
        COMPONENT ${component})
endforeach()
