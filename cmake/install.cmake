# Installs the library, its headers, the program, the shipped data and a package that another
# project finds with find_package(welldb).
include(CMakePackageConfigHelpers)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/welldb)

# The installed program finds the library from where it stands itself, wherever both are moved to.
file(RELATIVE_PATH bin_to_lib ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
set_target_properties(welldb_cli PROPERTIES INSTALL_RPATH "$ORIGIN/${bin_to_lib}")

install(TARGETS welldb welldb_api EXPORT welldb
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/welldb)
install(TARGETS welldb_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY data/planshet data/strategraphy DESTINATION ${CMAKE_INSTALL_DATADIR}/welldb
    PATTERN LAS_methods.csv EXCLUDE)
install(FILES ${curve_catalogue} DESTINATION ${CMAKE_INSTALL_DATADIR}/welldb/strategraphy)
install(FILES ${man_page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${completion} DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)

install(EXPORT welldb NAMESPACE welldb:: DESTINATION ${package_folder} FILE welldbTargets.cmake)
configure_package_config_file(cmake/welldbConfig.cmake.in ${PROJECT_BINARY_DIR}/welldbConfig.cmake
    INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/welldbConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/welldbConfig.cmake ${PROJECT_BINARY_DIR}/welldbConfigVersion.cmake
    DESTINATION ${package_folder})
