# A base library of somebody's own, all in its headers. OWN_FAULT names a fault that it is to have.
if(NOT TARGET qx::base)
    add_library(qx::base INTERFACE IMPORTED)
    target_include_directories(qx::base INTERFACE ${CMAKE_CURRENT_LIST_DIR}/include)
    target_compile_definitions(qx::base INTERFACE ${OWN_FAULT})
endif()
