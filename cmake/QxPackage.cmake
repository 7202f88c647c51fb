# Packages of the installed files, made by cpack: on Linux a Debian package for the programs that use the
# library and one for building them, for Windows one zip of everything.

set(QX_PACKAGE_CONTACT "QX developers <unknown@invalid>" CACHE STRING "Who maintains the packages")
set(CPACK_PACKAGE_NAME qx)
set(CPACK_PACKAGE_VENDOR QX)
set(CPACK_PACKAGE_CONTACT ${QX_PACKAGE_CONTACT})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_VERBATIM_VARIABLES ON)

if(CMAKE_SYSTEM_NAME STREQUAL "Windows")
    set(CPACK_GENERATOR ZIP)
    set(CPACK_PACKAGE_FILE_NAME qx-${PROJECT_VERSION}-win64)
    set(CPACK_STRIP_FILES ON)
    if(TARGET qxtab)
        install(TARGETS qxtab RUNTIME COMPONENT runtime)
    endif()
    if(MINGW) # the compiler's own libraries, which Windows does not have
        foreach(library IN ITEMS libgcc_s_seh-1.dll libstdc++-6.dll libwinpthread-1.dll)
            execute_process(
                COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
                OUTPUT_VARIABLE file
                OUTPUT_STRIP_TRAILING_WHITESPACE)
            if(NOT IS_ABSOLUTE "${file}")
                continue()
            endif()
            if(CMAKE_STRIP) # without symbols they take a twelfth of the size
                set(stripped ${PROJECT_BINARY_DIR}/compiler/${library})
                file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/compiler)
                execute_process(COMMAND ${CMAKE_STRIP} -o ${stripped} ${file} COMMAND_ERROR_IS_FATAL ANY)
                set(file ${stripped})
            endif()
            install(PROGRAMS ${file} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
        endforeach()
    endif()
elseif(BUILD_SHARED_LIBS)
    get_target_property(soversion qx SOVERSION)
    set(CPACK_GENERATOR DEB)
    set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX}) # the path of GDB's views depends on it
    set(CPACK_DEB_COMPONENT_INSTALL ON)
    set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)

    # A minor version may break while the version is 0.x, so that two of them can be installed side by side.
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libqx${soversion})
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
        ${CMAKE_CURRENT_BINARY_DIR}
        ${CMAKE_CURRENT_BINARY_DIR}/siblings/base
        ${CMAKE_CURRENT_BINARY_DIR}/siblings/datetime)
    set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
    set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY >=)
    set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "The shared libraries that programs need to run.")
    if(CMAKE_BUILD_TYPE MATCHES "Deb")
        set(CPACK_DEBIAN_RUNTIME_DEBUGINFO_PACKAGE ON) # which GDB needs to show cells and tables
    else()
        set(CPACK_STRIP_FILES ON)
    endif()

    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libqx-dev)
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libqx${soversion} (= ${PROJECT_VERSION}), libstdc++-dev")
    set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
        "The headers, with what CMake and pkg-config need to find the libraries.")
else()
    set(CPACK_GENERATOR TGZ)
endif()

include(CPack)
