# Brings in header-only libraries that a Debian package provides.

# Finds the CMake package `name`, which makes `target`. When building for another system, where nothing of this
# one is to be seen, it is made here, of the one directory of headers that belongs to it.
function(header_only_library name target directory debian_package)
    if(NOT CMAKE_CROSSCOMPILING)
        find_package(${name} CONFIG QUIET)
    elseif(IS_DIRECTORY /usr/include/${directory})
        set(headers ${CMAKE_CURRENT_BINARY_DIR}/headers/${name})
        file(MAKE_DIRECTORY ${headers})
        file(CREATE_LINK /usr/include/${directory} ${headers}/${directory} SYMBOLIC)
        add_library(${target} INTERFACE IMPORTED)
        target_include_directories(${target} INTERFACE ${headers})
    endif()
    if(NOT TARGET ${target})
        message(FATAL_ERROR "The example programs need the Debian package ${debian_package}: install it, or "
                            "build without them (-DQX_BUILD_EXAMPLES=OFF)")
    endif()
endfunction()
