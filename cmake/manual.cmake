# The man page and the completion for bash, made from the program's own --help, and the reference of
# the public headers: target docs, where doxygen is installed.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

function(made_from_help output script)
    add_custom_command(OUTPUT ${output}
        COMMAND Python3::Interpreter -B ${PROJECT_SOURCE_DIR}/tools/${script} $<TARGET_FILE:welldb_cli> ${output}
        DEPENDS welldb_cli ${PROJECT_SOURCE_DIR}/tools/${script} ${PROJECT_SOURCE_DIR}/tools/program_help.py
        VERBATIM)
endfunction()

set(man_page ${PROJECT_BINARY_DIR}/man/welldb.1)
set(completion ${PROJECT_BINARY_DIR}/completion/welldb.bash)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/man ${PROJECT_BINARY_DIR}/completion)
made_from_help(${man_page} make_man_page.py)
made_from_help(${completion} make_completion.py)
add_custom_target(manual ALL DEPENDS ${man_page} ${completion})

find_package(Doxygen QUIET)
if(DOXYGEN_FOUND)
    configure_file(Doxyfile.in ${PROJECT_BINARY_DIR}/Doxyfile @ONLY)
    add_custom_target(docs COMMAND Doxygen::doxygen ${PROJECT_BINARY_DIR}/Doxyfile
        COMMENT "The reference: ${PROJECT_BINARY_DIR}/docs/html/index.html" VERBATIM)
endif()
