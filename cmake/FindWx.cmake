# Finds the wx platform through an explicit wx-config and defines vela7::wxwidgets and vela7::gtk.
#
# Input: VELA7_GTK (2 or 3); VELA7_WX_CONFIG (cache), by default what the environment's WX_CONFIG names, else
# for GTK 2 the build that scripts/setup made, else the wx-config of the PATH.

find_package(PkgConfig REQUIRED)

set(_default_wx_config wx-config)
if(VELA7_GTK STREQUAL "2")
    if(DEFINED ENV{XDG_CACHE_HOME})
        set(_user_cache "$ENV{XDG_CACHE_HOME}")
    else()
        set(_user_cache "$ENV{HOME}/.cache")
    endif()
    set(_prefix "${_user_cache}/vela7/wx-3.0.5.1-gtk2")
    if(DEFINED ENV{VELA7_WX_PREFIX})
        set(_prefix "$ENV{VELA7_WX_PREFIX}")
    endif()
    if(DEFINED ENV{WX_CONFIG})
        set(_default_wx_config "$ENV{WX_CONFIG}")
    elseif(EXISTS "${_prefix}/bin/wx-config")
        set(_default_wx_config "${_prefix}/bin/wx-config")
    endif()
endif()
set(VELA7_WX_CONFIG "${_default_wx_config}" CACHE STRING "The wx-config of the wx platform to build on")

if(VELA7_GTK STREQUAL "2")
    set(_wanted_version 3.0)
    set(_wanted_toolkit gtk2)
    pkg_check_modules(VELA7_GTK_PC REQUIRED IMPORTED_TARGET gtk+-2.0)
elseif(VELA7_GTK STREQUAL "3")
    set(_wanted_version 3.2)
    set(_wanted_toolkit gtk3)
    pkg_check_modules(VELA7_GTK_PC REQUIRED IMPORTED_TARGET gtk+-3.0)
else()
    message(FATAL_ERROR "VELA7_GTK is '${VELA7_GTK}'; wanted: 2 or 3")
endif()

# _wx_config(OUT ARGS...): what wx-config answers; stops the configuration when it cannot be run.
function(_wx_config out)
    execute_process(COMMAND ${VELA7_WX_CONFIG} ${ARGN}
        OUTPUT_VARIABLE answer ERROR_VARIABLE error RESULT_VARIABLE status OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "'${VELA7_WX_CONFIG} ${ARGN}' failed (${status}) ${error}\n"
            "Wanted: wxWidgets ${_wanted_version} on ${_wanted_toolkit}. scripts/setup provides it.")
    endif()
    set(${out} "${answer}" PARENT_SCOPE)
endfunction()

_wx_config(_version --version)
_wx_config(_flavour --selected-config)
if(NOT _version MATCHES "^${_wanted_version}" OR NOT _flavour MATCHES "^${_wanted_toolkit}-")
    message(FATAL_ERROR "'${VELA7_WX_CONFIG}' is wxWidgets ${_version} (${_flavour}); "
        "wanted: wxWidgets ${_wanted_version} on ${_wanted_toolkit}. scripts/setup provides it.")
endif()
message(STATUS "wxWidgets ${_version} (${_flavour}) from ${VELA7_WX_CONFIG}")

_wx_config(_cxxflags --cxxflags)
_wx_config(_libs --libs core,base)
separate_arguments(_cxxflags UNIX_COMMAND "${_cxxflags}")
separate_arguments(_libs UNIX_COMMAND "${_libs}")

add_library(vela7_wxwidgets INTERFACE)
add_library(vela7::wxwidgets ALIAS vela7_wxwidgets)
foreach(flag IN LISTS _cxxflags)
    if(flag MATCHES "^-I(.*)")
        target_include_directories(vela7_wxwidgets SYSTEM INTERFACE "${CMAKE_MATCH_1}")
    elseif(flag MATCHES "^-D(.*)")
        target_compile_definitions(vela7_wxwidgets INTERFACE "${CMAKE_MATCH_1}")
    else()
        target_compile_options(vela7_wxwidgets INTERFACE "${flag}")
    endif()
endforeach()
foreach(flag IN LISTS _libs)
    if(flag MATCHES "^-L(.*)")
        target_link_directories(vela7_wxwidgets INTERFACE "${CMAKE_MATCH_1}")
        target_link_options(vela7_wxwidgets INTERFACE "LINKER:-rpath,${CMAKE_MATCH_1}")
    else()
        target_link_libraries(vela7_wxwidgets INTERFACE "${flag}")
    endif()
endforeach()

add_library(vela7::gtk ALIAS PkgConfig::VELA7_GTK_PC)
