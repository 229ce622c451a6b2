# Finds the wx platform through an explicit wx-config and defines vela7::wxwidgets; with VELA7_WITH_GTK also
# vela7::gtk, which programs that only use the library do without. Installed with the CMake package.
#
# Input: VELA7_GTK (2 or 3); VELA7_WX_CONFIG (cache), by default the first that there is of: what the environment's
# WX_CONFIG names (for GTK 2), VELA7_DEFAULT_WX_CONFIG, the build that scripts/setup made (for GTK 2), the wx-config
# of the PATH.

set(_default_wx_config wx-config)
set(_candidates "${VELA7_DEFAULT_WX_CONFIG}")
if(VELA7_GTK STREQUAL "2")
    set(_user_cache "$ENV{HOME}/.cache")
    if(DEFINED ENV{XDG_CACHE_HOME})
        set(_user_cache "$ENV{XDG_CACHE_HOME}")
    endif()
    set(_prefix "${_user_cache}/vela7/wx-3.0.5.1-gtk2")
    if(DEFINED ENV{VELA7_WX_PREFIX})
        set(_prefix "$ENV{VELA7_WX_PREFIX}")
    endif()
    list(APPEND _candidates "${_prefix}/bin/wx-config")
endif()
foreach(candidate IN LISTS _candidates)
    if(IS_ABSOLUTE "${candidate}" AND EXISTS "${candidate}")
        set(_default_wx_config "${candidate}")
        break()
    endif()
endforeach()
if(VELA7_GTK STREQUAL "2" AND DEFINED ENV{WX_CONFIG})
    set(_default_wx_config "$ENV{WX_CONFIG}")
endif()
set(VELA7_WX_CONFIG "${_default_wx_config}" CACHE STRING "The wx-config of the wx platform to build on")

if(VELA7_GTK STREQUAL "2")
    set(_wanted_version 3.0)
    set(_wanted_toolkit gtk2)
    set(_gtk_package gtk+-2.0)
elseif(VELA7_GTK STREQUAL "3")
    set(_wanted_version 3.2)
    set(_wanted_toolkit gtk3)
    set(_gtk_package gtk+-3.0)
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

add_library(vela7::wxwidgets INTERFACE IMPORTED GLOBAL)
set(VELA7_WX_LIBRARY_DIRS "")
set(_wx_libraries "")
foreach(flag IN LISTS _cxxflags)
    if(flag MATCHES "^-I(.*)")
        target_include_directories(vela7::wxwidgets SYSTEM INTERFACE "${CMAKE_MATCH_1}")
    elseif(flag MATCHES "^-D(.*)")
        target_compile_definitions(vela7::wxwidgets INTERFACE "${CMAKE_MATCH_1}")
    else()
        target_compile_options(vela7::wxwidgets INTERFACE "${flag}")
    endif()
endforeach()
foreach(flag IN LISTS _libs)
    if(flag MATCHES "^-L(.*)")
        if(NOT CMAKE_MATCH_1 IN_LIST CMAKE_CXX_IMPLICIT_LINK_DIRECTORIES)
            list(APPEND VELA7_WX_LIBRARY_DIRS "${CMAKE_MATCH_1}")
        endif()
    else()
        list(APPEND _wx_libraries "${flag}")
    endif()
endforeach()

# A wx that the loader does not know is brought by the program, which therefore names it even when it uses nothing of
# it: a library's run path would tie that library to this machine.
foreach(dir IN LISTS VELA7_WX_LIBRARY_DIRS)
    target_link_directories(vela7::wxwidgets INTERFACE "${dir}")
    target_link_options(vela7::wxwidgets INTERFACE
        "$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:LINKER:-rpath,${dir}>")
endforeach()
if(VELA7_WX_LIBRARY_DIRS)
    list(PREPEND _wx_libraries "-Wl,--push-state,--no-as-needed")
    list(APPEND _wx_libraries "-Wl,--pop-state")
endif()
# One item, so that it stays together and in this order.
list(JOIN _wx_libraries " " _wx_libraries)
target_link_libraries(vela7::wxwidgets INTERFACE "${_wx_libraries}")

if(VELA7_WITH_GTK)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(VELA7_GTK_PC REQUIRED IMPORTED_TARGET ${_gtk_package})
    add_library(vela7::gtk ALIAS PkgConfig::VELA7_GTK_PC)
endif()
