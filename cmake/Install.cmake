# What is installed: the libraries, the headers, the CMake package, zqxml.pc, the tool and the catalog.
include(CMakePackageConfigHelpers)

set(ZQXML_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/zqxml)

install(TARGETS zqxml zqxml_static EXPORT zqxmlTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY include/zqxml ${ZQXML_GENERATED_INCLUDE_DIR}/zqxml
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp")
install(EXPORT zqxmlTargets NAMESPACE zqxml:: DESTINATION ${ZQXML_CMAKE_DIR})
configure_package_config_file(cmake/zqxmlConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/zqxmlConfig.cmake INSTALL_DESTINATION ${ZQXML_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/zqxmlConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/zqxmlConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/zqxmlConfigVersion.cmake
  DESTINATION ${ZQXML_CMAKE_DIR})

# The prefix may be chosen as late as `cmake --install --prefix`, so zqxml.pc is written then.
set(ZQXML_PC_LIBDIR "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
set(ZQXML_PC_INCLUDEDIR "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
install(CODE "
  set(PROJECT_VERSION \"${PROJECT_VERSION}\")
  set(PROJECT_DESCRIPTION \"${PROJECT_DESCRIPTION}\")
  set(ZQXML_PC_LIBDIR [[${ZQXML_PC_LIBDIR}]])
  set(ZQXML_PC_INCLUDEDIR [[${ZQXML_PC_INCLUDEDIR}]])
  configure_file(\"${CMAKE_CURRENT_SOURCE_DIR}/cmake/zqxml.pc.in\"
    \"${CMAKE_CURRENT_BINARY_DIR}/zqxml.pc\" @ONLY)
")
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zqxml.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# "C" serves the C locale and programs without one, "en" all English locales.
foreach(locale C en)
  install(FILES ${ZQXML_CATALOG_FILE} DESTINATION ${CMAKE_INSTALL_DATADIR}/locale/${locale}/LC_MESSAGES)
endforeach()

if(TARGET zqxml_tool)
  install(TARGETS zqxml_tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

if(PROJECT_IS_TOP_LEVEL)
  set(CPACK_GENERATOR TGZ DEB)
  set(CPACK_PACKAGE_CONTACT "libzqxml maintainers <maintainers@zqxml.invalid>")
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  # For zqxml/builders.hpp and the static library.
  set(CPACK_DEBIAN_PACKAGE_RECOMMENDS libxerces-c-dev)
  include(CPack)
endif()
