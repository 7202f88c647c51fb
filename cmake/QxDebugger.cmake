# Views of the library's classes for debuggers.

# GDB looks beside a library for a script of its name, here in the build tree; QxInstall puts it into
# GDB's own directory.
if(BUILD_SHARED_LIBS AND UNIX AND NOT APPLE)
    set(qx_gdb_script ${PROJECT_SOURCE_DIR}/debug/qx-gdb.py)
    configure_file(${qx_gdb_script} libqx.so.${PROJECT_VERSION}-gdb.py COPYONLY)
endif()

# Visual Studio reads its views from the debug information that the linker writes.
if(MSVC AND BUILD_SHARED_LIBS)
    set(natvis ${PROJECT_SOURCE_DIR}/debug/qx.natvis)
    if(CMAKE_GENERATOR MATCHES "Visual Studio")
        target_sources(qx PRIVATE ${natvis})
    else()
        target_link_options(qx PRIVATE /NATVIS:${natvis})
        set_property(TARGET qx APPEND PROPERTY LINK_DEPENDS ${natvis})
    endif()
endif()
