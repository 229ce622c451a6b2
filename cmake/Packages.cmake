# Debian packages: `cpack` in the build directory makes them.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vela7)
set(CPACK_PACKAGE_CONTACT "The vela7 authors")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
# What the libraries need of Debian's own packages is read from them. The reference wx is in no package, and our
# base library not yet.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON) # others read from ours, and the loader learns of them
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}" ${VELA7_WX_LIBRARY_DIRS})
set(CPACK_COMPONENTS_ALL "")

# _package(COMPONENT SECTION DEPENDS DESCRIPTION): one package, named like its component. The first line of the
# description is the synopsis.
macro(_package component section depends description)
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${component})
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
    set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${depends}")
    set(CPACK_DEBIAN_${upper}_DESCRIPTION "${description}")
endmacro()

set(version ${PROJECT_VERSION_MAJOR})
set(same "(= ${PROJECT_VERSION})")
if(NOT VELA7_BASE STREQUAL "external")
    _package(libvela7base${version} libs ""
        "Platform-neutral base library of the vela7 GUI toolkit\nInterfaces, event records, painter and window bases; needs no GUI platform.")
    _package(libvela7base-dev libdevel "libvela7base${version} ${same}"
        "Headers of the base library of the vela7 GUI toolkit\nFor controls that run on any back-end, and for back-ends.")
endif()
if(VELA7_GTK STREQUAL "2")
    set(wx "It needs wxWidgets 3.0 built for GTK 2 as one library (libwx_gtk2u-3.0.so.0), which is in no package of this distribution: the project's scripts/setup builds it. The host program brings it, by its run path for instance.")
    set(wx_dev "Name its wx-config with WX_CONFIG when you configure a host.")
    set(runtime libvela7wx-gtk2-${version})
    set(needed "")
else()
    set(wx "For the distribution's wxWidgets 3.2 on GTK 3.")
    set(wx_dev "")
    set(runtime libvela7wx${version})
    set(needed ", libwxgtk3.2-dev")
endif()
_package(${runtime} libs "libvela7base${version} ${same}"
    "wxWidgets back-end of the vela7 GUI toolkit\nToolkit controls live inside an ordinary wx application. ${wx}")
_package(libvela7wx${VELA7_FLAVOUR}-dev libdevel "${runtime} ${same}, libvela7base-dev ${same}${needed}, pkg-config"
    "Headers of the wxWidgets back-end of the vela7 GUI toolkit\nFor hosts: wx applications with toolkit controls. ${wx} ${wx_dev}")
_package(libvela7testing${version} libs "libvela7base${version} ${same}"
    "Back-end without a display of the vela7 GUI toolkit\nFor tests of toolkit controls: windows, native controls, timers and input that a test works by itself.")
_package(libvela7testing-dev libdevel "libvela7testing${version} ${same}, libvela7base-dev ${same}"
    "Headers of the testing library of the vela7 GUI toolkit\nFor authors of controls.")
include(CPack)
