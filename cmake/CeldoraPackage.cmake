# What a host needs from an installed Celdora, and the Debian packages made
# from it with CPack:
#
#   celdora          the tool, the schema scripts and the demo company under
#                    share/celdora/schema, the documentation
#   libceldora-dev   the static libraries, their headers under
#                    include/celdora/<folder>/, the CMake package
#                    (find_package(Celdora), targets Celdora::*) and the
#                    pkg-config files
#
# Installed headers include each other by folder ("value/Variant.h"), so the
# targets and the .pc files put include/celdora on the include path; they put
# include/ there as well, so <celdora/core/cAcction.h> resolves in any prefix.
include(CMakePackageConfigHelpers)

target_include_directories(celdora_value PUBLIC
  $<INSTALL_INTERFACE:${CELDORA_INSTALL_INCLUDEDIR}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)

# `cmake --build BUILD --target installables` builds what the install rules
# copy, and nothing else (no tests), before an install or a package.
get_property(celdora_installed_libraries GLOBAL PROPERTY CELDORA_INSTALLED_LIBRARIES)
add_custom_target(installables)
add_dependencies(installables celdora ${celdora_installed_libraries})

# --- the tool, the schema, the documentation ---------------------------------

install(TARGETS celdora RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT Runtime)
install(FILES
    schema/sqlite.sql schema/mariadb.sql schema/sqlserver.sql schema/access.sql schema/demo.sql
  DESTINATION "${CMAKE_INSTALL_DATADIR}/celdora/schema" COMPONENT Runtime)

set(celdora_docdir "${CMAKE_INSTALL_DATADIR}/doc/celdora")
install(FILES README.md DESTINATION "${celdora_docdir}" COMPONENT Runtime)
install(FILES schema/README.md DESTINATION "${celdora_docdir}/schema" COMPONENT Runtime)
install(DIRECTORY docs/ DESTINATION "${celdora_docdir}/docs" COMPONENT Runtime
  FILES_MATCHING PATTERN "*.md")

# --- the CMake package ---------------------------------------------------------

install(EXPORT CeldoraTargets NAMESPACE Celdora:: FILE CeldoraTargets.cmake
  DESTINATION "${CELDORA_INSTALL_CMAKEDIR}" COMPONENT Development)
if(TARGET celdora_qt)
  install(EXPORT CeldoraQtTargets NAMESPACE Celdora:: FILE CeldoraQtTargets.cmake
    DESTINATION "${CELDORA_INSTALL_CMAKEDIR}" COMPONENT Development)
endif()

configure_package_config_file(cmake/CeldoraConfig.cmake.in
  "${PROJECT_BINARY_DIR}/cmake/CeldoraConfig.cmake"
  INSTALL_DESTINATION "${CELDORA_INSTALL_CMAKEDIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/cmake/CeldoraConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/cmake/CeldoraConfig.cmake"
    "${PROJECT_BINARY_DIR}/cmake/CeldoraConfigVersion.cmake"
  DESTINATION "${CELDORA_INSTALL_CMAKEDIR}" COMPONENT Development)

# --- pkg-config ------------------------------------------------------------------
#
# celdora.pc holds every library that needs only the C++ standard library;
# each library that wraps an outside one has its own file, which names that
# library's .pc in Requires.private. The libraries are static, so a host
# links with `pkg-config --static --libs`. Each file finds the prefix from
# where it lies, so an installed tree can be moved.

set(celdora_pcdir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH celdora_pc_to_prefix "/prefix/${celdora_pcdir}" "/prefix")
string(REGEX REPLACE "/$" "" celdora_pc_to_prefix "${celdora_pc_to_prefix}")

function(celdora_pkg_config name description requires requires_private libs)
  set(celdora_pc_name "${name}")
  set(celdora_pc_description "${description}")
  set(celdora_pc_requires "${requires}")
  set(celdora_pc_requires_private "${requires_private}")
  list(TRANSFORM libs PREPEND "-l")
  list(JOIN libs " " celdora_pc_libs)
  configure_file(cmake/celdora.pc.in "${PROJECT_BINARY_DIR}/pkgconfig/${name}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/pkgconfig/${name}.pc"
    DESTINATION "${celdora_pcdir}" COMPONENT Development)
endfunction()

# Archives in link order: each before the ones it uses.
celdora_pkg_config(celdora
  "Fiscal library for Mexican electronic invoicing: facade, rules, dialogs, platform without outside libraries"
  "" ""
  "celdora_system;celdora_console;celdora_files;celdora_platform_common;celdora_forms;celdora_schema;celdora_value")
celdora_pkg_config(celdora-sqlite "Celdora on SQLite" "celdora" "sqlite3" "celdora_sqlite")
celdora_pkg_config(celdora-mariadb "Celdora on MariaDB and MySQL" "celdora" "libmariadb" "celdora_mariadb")
celdora_pkg_config(celdora-odbc "Celdora through ODBC" "celdora" "odbc" "celdora_odbc")
celdora_pkg_config(celdora-crypto "Celdora's cipher, digest and PFX tool on OpenSSL" "celdora" "libcrypto" "celdora_crypto")
celdora_pkg_config(celdora-desktop "Celdora's real components under the names the system creates them by"
  "celdora-sqlite celdora-crypto celdora" "" "celdora_desktop")
if(TARGET celdora_qt)
  celdora_pkg_config(celdora-qt "Celdora's dialogs in Qt Widgets" "celdora" "Qt6Widgets" "celdora_qt")
endif()

# --- the Debian packages -------------------------------------------------------------

include(cmake/CeldoraDeb.cmake)
