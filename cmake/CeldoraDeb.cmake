# Two Debian packages from the install rules, made with
#   cpack --config build/ci/CPackConfig.cmake -B DIR
# celdora (the Runtime component) and libceldora-dev (Development). The
# tool's dependencies come from dpkg-shlibdeps; the static libraries need
# the engines' -dev packages to link, so those are listed.

set(CELDORA_PACKAGE_MAINTAINER "Celdora Dev <dev@celdora.invalid>"
  CACHE STRING "Maintainer field of the Debian packages")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME celdora)
set(CPACK_PACKAGE_VENDOR "Celdora")
set(CPACK_PACKAGE_CONTACT "${CELDORA_PACKAGE_MAINTAINER}")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL Runtime Development)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME celdora)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
"fiscal library for Mexican electronic invoicing (SAT) - tool
The celdora tool creates a demo company database on SQLite, binds the
library's facade to a SQLite, MariaDB or ODBC database, calls its members by
name and opens its dialogs on the terminal or in Qt. The package also holds
the schema scripts for SQLite, MariaDB/MySQL, SQL Server and Access, the demo
company's data, and the documentation.

Biblioteca fiscal para la facturación electrónica mexicana (SAT): la
herramienta celdora crea una empresa de demostración en SQLite, enlaza la
fachada de la biblioteca con una base SQLite, MariaDB u ODBC, llama a sus
miembros por nombre y abre sus diálogos en la terminal o en Qt. Incluye los
guiones del esquema de cuatro motores, los datos de la empresa de
demostración y la documentación.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libceldora-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "libsqlite3-dev, libmariadb-dev, unixodbc-dev, libssl-dev (>= 3)")
if(TARGET celdora_qt)
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "qt6-base-dev")
endif()
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
"fiscal library for Mexican electronic invoicing (SAT) - development files
Static libraries and headers of the library that a host application binds
to its database to answer questions about its fiscal documents, with a CMake
package (find_package(Celdora), targets Celdora::*) and pkg-config files:
the facade and its rules, the dialog models, and the platform on SQLite,
MariaDB, ODBC and OpenSSL, on the terminal and, when built, in Qt.

Bibliotecas estáticas y cabeceras de la biblioteca fiscal para la
facturación electrónica mexicana (SAT) que una aplicación enlaza con su base
de datos, con un paquete de CMake (find_package(Celdora)) y archivos de
pkg-config.")

# Each package's documentation folder carries its copyright file and a
# compressed changelog, as Debian asks of every package.
string(TIMESTAMP celdora_changelog_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(packaging/changelog.in "${PROJECT_BINARY_DIR}/packaging/changelog" @ONLY)
execute_process(
  COMMAND gzip -9 -n -c "${PROJECT_BINARY_DIR}/packaging/changelog"
  OUTPUT_FILE "${PROJECT_BINARY_DIR}/packaging/changelog.gz"
  COMMAND_ERROR_IS_FATAL ANY)
foreach(component_package IN ITEMS "Runtime;celdora" "Development;libceldora-dev")
  list(GET component_package 0 component)
  list(GET component_package 1 package)
  install(FILES packaging/copyright "${PROJECT_BINARY_DIR}/packaging/changelog.gz"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}" COMPONENT ${component})
endforeach()

include(CPack)
