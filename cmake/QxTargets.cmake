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
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # A plug-in with one of g++'s unique symbols in it would never be unloaded.
        target_compile_options(${target} PRIVATE -fno-gnu-unique)
    endif()
    if(QX_HARDEN)
        qx_harden(${target})
    endif()
endfunction()

# Guards `target` against the exploitation of faults: checks of the stack, of the standard C functions' buffers and of
# where returns and indirect calls lead; nothing that the loader fills in can be written afterwards. scripts/hardened
# tells whether all of it is in a binary.
#
# Debian 12's start-up files are not made for checked indirect calls, so that the linker can't say of the whole that
# it is; of checked returns (the shadow stack) they need to know nothing, so that it may.
function(qx_harden target)
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    target_compile_options(${target} PRIVATE
        -fstack-protector-strong
        -fstack-clash-protection
        $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE>
        $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>) # takes an optimised build
    target_link_options(${target} PRIVATE LINKER:-z,relro LINKER:-z,now)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i.86)$")
        target_compile_options(${target} PRIVATE -fcf-protection)
        target_link_options(${target} PRIVATE LINKER:-z,shstk)
    elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^(aarch64|arm64)$")
        target_compile_options(${target} PRIVATE -mbranch-protection=standard)
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
