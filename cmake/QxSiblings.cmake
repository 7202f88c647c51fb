# The two libraries that QX builds on, each of which others may bring along.

# Brings in a sibling library: a target that the including project made, a package, or the stand-in. What is not
# the stand-in is held against the contract: a package at once, a target when it is built.
function(qx_sibling name package)
    set(target qx::${name})
    set(contract ${PROJECT_SOURCE_DIR}/siblings/${name}/contract.cpp)
    if(TARGET ${target})
        add_library(qx_${name}_contract OBJECT ${contract})
        qx_configure(qx_${name}_contract)
        target_link_libraries(qx_${name}_contract PRIVATE ${target})
    elseif(package)
        find_package(${package} CONFIG REQUIRED)
        if(NOT TARGET ${target})
            message(FATAL_ERROR "The package ${package} does not provide ${target}")
        endif()
        qx_check_package(${package} ${target} ${contract})
    else()
        add_subdirectory(siblings/${name})
    endif()
endfunction()

# Compiles the contract with the package's target and, where programs for the target system can be run, runs it.
function(qx_check_package package target contract)
    get_target_property(imported ${target} ALIASED_TARGET) # a project of its own sees no alias
    if(NOT imported)
        set(imported ${target})
    endif()
    set(arguments
        SOURCES ${contract} NO_CACHE LINK_LIBRARIES ${imported} CXX_STANDARD 20 CXX_STANDARD_REQUIRED ON)
    if(CMAKE_CROSSCOMPILING AND NOT CMAKE_CROSSCOMPILING_EMULATOR)
        try_compile(compiled ${arguments} OUTPUT_VARIABLE log)
        set(result 0)
    else()
        try_run(result compiled ${arguments} COMPILE_OUTPUT_VARIABLE log RUN_OUTPUT_VARIABLE found)
    endif()
    if(NOT compiled)
        string(REGEX MATCHALL "error: [^\n]*" errors "${log}")
        if(NOT errors)
            set(errors "${log}")
        endif()
        list(JOIN errors "\n  " errors)
        message(FATAL_ERROR
            "${target} of the package ${package} lacks what QX needs of it, see docs/siblings.md:\n  ${errors}")
    endif()
    if(NOT result EQUAL 0)
        string(REGEX REPLACE "\n" "\n  " found "${found}")
        message(FATAL_ERROR
            "${target} of the package ${package} does not do what QX needs of it, see docs/siblings.md:\n"
            "  ${found}")
    endif()
endfunction()
