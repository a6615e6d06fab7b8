# Lays the shipped data into the build tree, beside the library: what programs find before anything
# is installed. The catalogue of log curves is made from its table, everything else is copied.
add_executable(make_curve_catalogue ${PROJECT_SOURCE_DIR}/tools/make_curve_catalogue.cpp)
target_compile_options(make_curve_catalogue PRIVATE ${WELLDB_WARNINGS})
target_link_libraries(make_curve_catalogue PRIVATE welldb_platform)

set(curve_table ${PROJECT_SOURCE_DIR}/data/strategraphy/LAS_methods.csv)
set(curve_catalogue ${PROJECT_BINARY_DIR}/data/strategraphy/LAS_methods.db)
add_custom_command(OUTPUT ${curve_catalogue}
    COMMAND make_curve_catalogue ${curve_table} ${curve_catalogue}
    DEPENDS ${curve_table} make_curve_catalogue VERBATIM)

file(GLOB copied RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/data/planshet/* ${PROJECT_SOURCE_DIR}/data/strategraphy/*.csv)
list(REMOVE_ITEM copied data/strategraphy/LAS_methods.csv)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/data/planshet ${PROJECT_BINARY_DIR}/data/strategraphy)
foreach(file IN LISTS copied)
    add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/${file}
        COMMAND ${CMAKE_COMMAND} -E copy ${PROJECT_SOURCE_DIR}/${file} ${PROJECT_BINARY_DIR}/${file}
        DEPENDS ${PROJECT_SOURCE_DIR}/${file} VERBATIM)
endforeach()
list(TRANSFORM copied PREPEND ${PROJECT_BINARY_DIR}/)
add_custom_target(shipped_data ALL DEPENDS ${copied} ${curve_catalogue})
add_dependencies(welldb shipped_data)
