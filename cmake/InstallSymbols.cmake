# Run while installing: puts the debug symbols of `file`, a program or shared library, where GDB looks for them.

execute_process(COMMAND ${readelf} --notes ${file} OUTPUT_VARIABLE notes COMMAND_ERROR_IS_FATAL ANY)
if(NOT notes MATCHES "Build ID: ([0-9a-f][0-9a-f])([0-9a-f]+)")
    message(FATAL_ERROR "${file} has no build id")
endif()
set(directory $ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/lib/debug/.build-id/${CMAKE_MATCH_1})
set(symbols ${directory}/${CMAKE_MATCH_2}.debug)
file(MAKE_DIRECTORY ${directory})
execute_process(
    COMMAND ${objcopy} --only-keep-debug --compress-debug-sections ${file} ${symbols}
    COMMAND_ERROR_IS_FATAL ANY)
file(CHMOD ${symbols} PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
