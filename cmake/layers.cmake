# One object library per folder; the shared library and the tests are made of them.

set(WELLDB_WARNINGS -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Werror)
set(WELLDB_LAYERS "" CACHE INTERNAL "object libraries of the layers, lowest first")

function(welldb_layer name)
    cmake_parse_arguments(arg "" "" "SOURCES;USES;LIBRARIES" ${ARGN})
    add_library(welldb_${name} OBJECT ${arg_SOURCES})
    target_include_directories(welldb_${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_compile_options(welldb_${name} PRIVATE ${WELLDB_WARNINGS})
    target_compile_definitions(welldb_${name} PRIVATE NORLEX_BUILD)
    target_link_libraries(welldb_${name} PUBLIC welldb_api ${arg_USES} PRIVATE ${arg_LIBRARIES})
    set(WELLDB_LAYERS ${WELLDB_LAYERS} welldb_${name} CACHE INTERNAL "")
endfunction()
