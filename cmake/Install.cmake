# Installation: libraries and headers, CMake packages, pkg-config files; Debian packages through CPack.
#
# The components of cmake --install: `runtime`, `devel` and `testing`, or what they consist of, one component for each
# Debian package (libvela7base1, libvela7base-dev, libvela7wx1, libvela7wx-dev, libvela7testing1, libvela7testing-dev).
# The reference has libvela7wx-gtk2-1 and libvela7wx-gtk2-dev; none of their files is another package's.

set(VELA7_RUNTIME_COMPONENTS "")
set(VELA7_DEVEL_COMPONENTS "")
set(VELA7_WX_PC_CFLAGS "")
set(VELA7_WX_PC_LIBS "")
if(NOT VELA7_WX_LIBRARY_DIRS) # the distribution's wx: its flags are the same everywhere
    list(FILTER _libs EXCLUDE REGEX "^-L")
    list(JOIN _cxxflags " " VELA7_WX_PC_CFLAGS)
    list(JOIN _libs " " VELA7_WX_PC_LIBS)
endif()

# _install_library(TARGET PACKAGE FLAVOUR [FILES...]): the library with its headers, its CMake package, to which the
# files belong, and its pkg-config file.
function(_install_library target package flavour)
    string(REGEX REPLACE "([0-9])$" "\\1-" runtime lib${target}${flavour})
    set(runtime ${runtime}${PROJECT_VERSION_MAJOR})
    set(devel lib${target}${flavour}-dev)
    set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/${package}${flavour})
    set(VELA7_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR})
    if(flavour)
        string(APPEND VELA7_INCLUDEDIR /vela7${flavour})
    endif()
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN")
    install(TARGETS ${target} EXPORT ${package}-targets
        LIBRARY COMPONENT ${runtime} NAMELINK_COMPONENT ${devel}
        FILE_SET HEADERS DESTINATION ${VELA7_INCLUDEDIR} COMPONENT ${devel})
    install(EXPORT ${package}-targets NAMESPACE vela7:: DESTINATION ${package_dir} COMPONENT ${devel})

    configure_package_config_file(cmake/${package}-config.cmake.in ${package}-config.cmake
        INSTALL_DESTINATION ${package_dir})
    write_basic_package_version_file(${package}-config-version.cmake COMPATIBILITY SameMajorVersion)
    if(package STREQUAL "vela7")
        configure_file(cmake/vela7-flavour.cmake.in vela7-flavour.cmake @ONLY)
        file(READ "${PROJECT_BINARY_DIR}/vela7-flavour.cmake" choice)
        file(APPEND "${PROJECT_BINARY_DIR}/vela7-config-version.cmake" "${choice}")
    endif()
    install(FILES "${PROJECT_BINARY_DIR}/${package}-config.cmake"
        "${PROJECT_BINARY_DIR}/${package}-config-version.cmake" ${ARGN}
        DESTINATION ${package_dir} COMPONENT ${devel})

    # The pkg-config file finds the prefix by its own place, so that an installed tree may be moved.
    file(RELATIVE_PATH VELA7_PC_PREFIX "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
    configure_file(cmake/${target}.pc.in ${target}${flavour}.pc @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/${target}${flavour}.pc" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT ${devel})

    set(VELA7_RUNTIME_COMPONENTS ${VELA7_RUNTIME_COMPONENTS} ${runtime} PARENT_SCOPE)
    set(VELA7_DEVEL_COMPONENTS ${VELA7_DEVEL_COMPONENTS} ${devel} PARENT_SCOPE)
endfunction()

# _install_together(COMPONENT PARTS...): a component that consists of others.
function(_install_together component)
    install(CODE "
        foreach(CMAKE_INSTALL_COMPONENT IN ITEMS ${ARGN})
            include(\"${PROJECT_BINARY_DIR}/cmake_install.cmake\")
        endforeach()" COMPONENT ${component} EXCLUDE_FROM_ALL)
endfunction()

if(NOT VELA7_BASE STREQUAL "external")
    _install_library(vela7base vela7base "")
endif()
_install_library(vela7wx vela7 "${VELA7_FLAVOUR}" cmake/FindWx.cmake cmake/keep_linked.cpp)
_install_together(runtime ${VELA7_RUNTIME_COMPONENTS})
_install_together(devel ${VELA7_DEVEL_COMPONENTS})
_install_library(vela7testing vela7testing "")
_install_together(testing libvela7testing${PROJECT_VERSION_MAJOR} libvela7testing-dev)

include(cmake/Packages.cmake)
