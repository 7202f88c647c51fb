# Packages of the installed files, made by cpack: on Linux a Debian package for each component, for Windows one zip
# of everything.

set(QX_PACKAGE_CONTACT "QX developers <developers@qx.invalid>" CACHE STRING "Who maintains the packages")
set(CPACK_PACKAGE_NAME qx)
set(CPACK_PACKAGE_VENDOR QX)
set(CPACK_PACKAGE_CONTACT ${QX_PACKAGE_CONTACT})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_COMPONENTS_ALL runtime development)
if(TARGET qxtab)
    list(APPEND CPACK_COMPONENTS_ALL tool)
endif()
if(QX_BUILD_MANUAL)
    list(APPEND CPACK_COMPONENTS_ALL manual)
endif()
set(CPACK_VERBATIM_VARIABLES ON)

if(CMAKE_SYSTEM_NAME STREQUAL "Windows")
    set(CPACK_GENERATOR ZIP)
    set(CPACK_PACKAGE_FILE_NAME qx-${PROJECT_VERSION}-win64)
    set(CPACK_STRIP_FILES ON)
    install(FILES CHANGELOG.md DESTINATION . COMPONENT runtime)
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
    include(QxDebian)
else()
    set(CPACK_GENERATOR TGZ)
endif()

include(CPack)
