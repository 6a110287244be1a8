# celdora_install_library(TARGET NAME [QT] [HEADER_FOLDERS folder...]
#                         [PRIVATE_HEADERS header...])
#
# Names a library Celdora::NAME inside the build tree (the alias a parent
# project using add_subdirectory links) and, when CELDORA_INSTALL is on,
# installs it under the same name: the archive, and its public headers under
# include/celdora/ keeping their folder (celdora/core/cAcction.h).
#
# The headers are every *.h of the folders the library's sources live in, so
# a subsystem folder that adds its sources to the system library brings its
# headers along; HEADER_FOLDERS names them instead for a library without
# sources of its own there (headers only, or generated sources).
# PRIVATE_HEADERS are left out: the inside of a library that a host never
# includes. QT puts the library in an export set of its own, loaded only when
# a host asks find_package(Celdora COMPONENTS Qt).
include_guard(GLOBAL)
include(GNUInstallDirs)

set(CELDORA_INSTALL_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}/celdora")
set(CELDORA_INSTALL_CMAKEDIR "${CMAKE_INSTALL_LIBDIR}/cmake/Celdora")

function(celdora_install_library target name)
  cmake_parse_arguments(PARSE_ARGV 2 arg "QT" "" "HEADER_FOLDERS;PRIVATE_HEADERS")
  if(NOT TARGET Celdora::${name})
    add_library(Celdora::${name} ALIAS ${target})
  endif()
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})

  get_target_property(type ${target} TYPE)
  if(type STREQUAL "INTERFACE_LIBRARY")
    set(scope INTERFACE)
  else()
    set(scope PUBLIC)
  endif()

  # The folders of the public headers.
  set(folders)
  if(arg_HEADER_FOLDERS)
    foreach(folder IN LISTS arg_HEADER_FOLDERS)
      cmake_path(ABSOLUTE_PATH folder BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" NORMALIZE)
      list(APPEND folders "${folder}")
    endforeach()
  else()
    get_target_property(sources ${target} SOURCES)
    get_target_property(source_dir ${target} SOURCE_DIR)
    if(NOT sources)
      set(sources)
    endif()
    foreach(source IN LISTS sources)
      cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY "${source_dir}" NORMALIZE)
      cmake_path(GET source PARENT_PATH folder)
      cmake_path(IS_PREFIX PROJECT_SOURCE_DIR "${folder}" NORMALIZE inside_tree)
      if(inside_tree)
        list(APPEND folders "${folder}")
      endif()
    endforeach()
  endif()
  list(REMOVE_DUPLICATES folders)

  set(headers)
  foreach(folder IN LISTS folders)
    file(GLOB found CONFIGURE_DEPENDS "${folder}/*.h")
    list(APPEND headers ${found})
  endforeach()
  foreach(excluded IN LISTS arg_PRIVATE_HEADERS)
    cmake_path(ABSOLUTE_PATH excluded BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" NORMALIZE)
    list(REMOVE_ITEM headers "${excluded}")
  endforeach()
  list(SORT headers)

  # Headers include each other by their folder from the project's root, in
  # the build tree and installed alike.
  if(headers)
    target_sources(${target} ${scope}
      FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}" FILES ${headers})
  endif()

  if(NOT CELDORA_INSTALL)
    return()
  endif()
  if(arg_QT)
    set(export_set CeldoraQtTargets)
  else()
    set(export_set CeldoraTargets)
  endif()
  set(file_set_clause)
  if(headers)
    set(file_set_clause FILE_SET HEADERS DESTINATION "${CELDORA_INSTALL_INCLUDEDIR}" COMPONENT Development)
  endif()
  if(NOT type STREQUAL "INTERFACE_LIBRARY")
    set_property(GLOBAL APPEND PROPERTY CELDORA_INSTALLED_LIBRARIES ${target})
  endif()
  install(TARGETS ${target} EXPORT ${export_set}
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Development
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Development
    ${file_set_clause})

  # The archives are built with debug information (RelWithDebInfo); a
  # stripped install (the .deb) takes it out, as Debian does for static
  # libraries, with the archive's member times zeroed.
  if(type STREQUAL "STATIC_LIBRARY" AND CMAKE_STRIP)
    install(CODE "
      if(CMAKE_INSTALL_DO_STRIP)
        execute_process(COMMAND \"${CMAKE_STRIP}\" --strip-debug --remove-section=.comment --enable-deterministic-archives
          \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/$<TARGET_FILE_NAME:${target}>\"
          COMMAND_ERROR_IS_FATAL ANY)
      endif()" COMPONENT Development)
  endif()
endfunction()
