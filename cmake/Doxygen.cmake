# The target `api-docs`: the reference of the public headers, as HTML in build/<preset>/api-docs. A warning of
# Doxygen's is an error.

find_package(Doxygen QUIET)
if(NOT DOXYGEN_FOUND)
    return()
endif()
set(DOXYGEN_PROJECT_NAME "vela7")
set(DOXYGEN_PROJECT_BRIEF "${PROJECT_DESCRIPTION}")
set(DOXYGEN_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/api-docs")
set(DOXYGEN_STRIP_FROM_PATH "${PROJECT_SOURCE_DIR}")
set(DOXYGEN_FILE_PATTERNS "*.h")
set(DOXYGEN_JAVADOC_AUTOBRIEF YES)
set(DOXYGEN_EXTRACT_ALL YES) # a name that says it all needs no comment
set(DOXYGEN_HIDE_UNDOC_RELATIONS NO)
set(DOXYGEN_WARN_AS_ERROR FAIL_ON_WARNINGS)
set(DOXYGEN_MACRO_EXPANSION YES)
set(DOXYGEN_EXPAND_ONLY_PREDEF YES)
set(DOXYGEN_PREDEFINED
    "VELA7_BASE_API=" "VELA7_WX_API=" "VELA7_TESTING_API=" "wxDECLARE_EVENT_TABLE()=" "wxDECLARE_DYNAMIC_CLASS(x)="
    "wxDECLARE_EXPORTED_EVENT(a,b,c)=extern const wxEventTypeTag<c> b")
set(DOXYGEN_HAVE_DOT NO)
set(DOXYGEN_GENERATE_LATEX NO)
set(DOXYGEN_QUIET YES)
set(DOXYGEN_USE_MDFILE_AS_MAINPAGE "${PROJECT_SOURCE_DIR}/docs/architecture.md")
doxygen_add_docs(api-docs
    "${PROJECT_SOURCE_DIR}/base/include" "${PROJECT_SOURCE_DIR}/include" "${PROJECT_SOURCE_DIR}/testing/include"
    "${PROJECT_SOURCE_DIR}/docs/architecture.md"
    COMMENT "The reference of the public headers")
