# A date-time library of somebody's own, all in its headers.
include(CMakeFindDependencyMacro)
find_dependency(ownbase CONFIG)
if(NOT TARGET qx::datetime)
    add_library(qx::datetime INTERFACE IMPORTED)
    target_include_directories(qx::datetime INTERFACE ${CMAKE_CURRENT_LIST_DIR}/include)
    target_link_libraries(qx::datetime INTERFACE qx::base)
endif()
