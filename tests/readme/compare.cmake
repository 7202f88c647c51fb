# Runs PROGRAM and fails unless it prints the text of the file EXPECTED, blanks at line ends and their kind aside.
file(READ ${EXPECTED} expected)
execute_process(COMMAND ${EMULATOR} ${PROGRAM} OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE " *\r?\n" "\n" printed "${printed}")
string(REGEX REPLACE " +\n" "\n" expected "${expected}")
if(NOT printed STREQUAL expected)
    message(FATAL_ERROR "The text shows\n${expected}but the program prints\n${printed}")
endif()
