# Runs PROGRAM and fails unless it prints the text of the file EXPECTED, blanks at line ends aside.
file(READ ${EXPECTED} expected)
execute_process(COMMAND ${PROGRAM} OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE " +\n" "\n" printed "${printed}")
string(REGEX REPLACE " +\n" "\n" expected "${expected}")
if(NOT printed STREQUAL expected)
    message(FATAL_ERROR "The text shows\n${expected}but the program prints\n${printed}")
endif()
