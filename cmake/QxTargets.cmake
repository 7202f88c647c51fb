# Settings that every target of this project shares.

# Compiles `target` as this project's own code: C++20, hidden symbols, every warning.
function(qx_configure target)
    target_compile_features(${target} PRIVATE cxx_std_20)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
        if(QX_WERROR)
            target_compile_options(${target} PRIVATE -Werror)
        endif()
    endif()
endfunction()

# Keeps what `target` has instantiated of the standard library's templates to itself: these are visible
# by the standard library's own word, and would bind other libraries to this one's copies.
function(qx_export_own_names target)
    set(script ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/exports.map)
    target_link_options(${target} PRIVATE LINKER:--version-script=${script})
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${script})
endfunction()

# Configures an installable library; `static_macro` tells its header that nothing is imported from a DLL.
function(qx_library target static_macro)
    qx_configure(${target})
    target_compile_features(${target} INTERFACE cxx_std_17)
    set_target_properties(${target} PROPERTIES
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR} # while 0.x, a minor version may break
        POSITION_INDEPENDENT_CODE ON # a static one may become part of a plug-in
        INSTALL_RPATH $ORIGIN # the libraries find each other wherever the tree is installed
        VERIFY_INTERFACE_HEADER_SETS ON)
    if(NOT BUILD_SHARED_LIBS)
        target_compile_definitions(${target} PUBLIC ${static_macro})
    elseif(WIN32)
        set_target_properties(${target} PROPERTIES PREFIX "")
    elseif(NOT APPLE)
        qx_export_own_names(${target})
    endif()
endfunction()

# Brings in a sibling library: a target that the including project made, a package, or the stand-in.
function(qx_sibling target package directory)
    if(TARGET ${target})
        return()
    endif()
    if(package)
        find_package(${package} CONFIG REQUIRED)
        if(NOT TARGET ${target})
            message(FATAL_ERROR "The package ${package} does not provide ${target}")
        endif()
    else()
        add_subdirectory(${directory})
    endif()
endfunction()
