# Installation: libraries and headers, CMake package, components runtime and devel.

set(targets vela7wx)
if(NOT VELA7_BASE STREQUAL "external")
    list(APPEND targets vela7base)
endif()

install(TARGETS ${targets} EXPORT vela7-targets
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT devel
    FILE_SET HEADERS COMPONENT devel)
set_target_properties(${targets} PROPERTIES INSTALL_RPATH "$ORIGIN")

# The exported wx target carries the flags of the wx that this build found.
install(TARGETS vela7_wxwidgets EXPORT vela7-targets)
set_target_properties(vela7_wxwidgets PROPERTIES EXPORT_NAME wxwidgets)
install(EXPORT vela7-targets NAMESPACE vela7:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/vela7 COMPONENT devel)

configure_package_config_file(cmake/vela7-config.cmake.in vela7-config.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/vela7)
write_basic_package_version_file(vela7-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/vela7-config.cmake" "${CMAKE_CURRENT_BINARY_DIR}/vela7-config-version.cmake"
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/vela7 COMPONENT devel)
install(FILES cmake/keep_linked.cpp DESTINATION ${CMAKE_INSTALL_DATADIR}/vela7 COMPONENT devel)
