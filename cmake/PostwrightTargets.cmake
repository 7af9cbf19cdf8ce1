# What every target shares: the language level, the warnings, where results go, and the flat
# <postwright/...> headers that hosts and our own sources include alike.

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")

include(GNUInstallDirs)

# An installed program finds our libraries relative to itself, wherever the tree is put. The system's
# own tree needs no help: every program finds its libraries.
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  set(CMAKE_INSTALL_RPATH "")
else()
  file(RELATIVE_PATH libraries_from_programs "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
  set(CMAKE_INSTALL_RPATH "$ORIGIN" "$ORIGIN/${libraries_from_programs}")
endif()

find_package(Threads REQUIRED)

add_library(postwright-options INTERFACE)
target_compile_features(postwright-options INTERFACE cxx_std_20)
target_compile_options(
  postwright-options
  INTERFACE -Wall -Wextra -Wpedantic -Wshadow "$<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor;-Woverloaded-virtual>"
            -Wcast-qual -Wformat=2
            $<$<BOOL:${POSTWRIGHT_WARNINGS_AS_ERRORS}>:-Werror>
            # GCC 12 sees std::string overlap itself, and std::wstring reach too far, where -O3 has
            # inlined them (its bug 105651).
            "$<$<AND:$<CONFIG:Release>,$<CXX_COMPILER_ID:GNU>>:-Wno-restrict;-Wno-attribute-warning>")
target_include_directories(postwright-options INTERFACE "${PROJECT_SOURCE_DIR}")

# Hostile text that finds a fault should end the program, not take it over: bounds checked by the C
# library, guards on the stack and its pages, jumps that land only where they may, and tables that
# are read-only once a program has started. Sanitizers check the same places themselves, and the C
# library's bounds need optimised code.
if(CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  set(POSTWRIGHT_SANITIZED ON)
  target_compile_definitions(postwright-options INTERFACE POSTWRIGHT_SANITIZED)
else()
  set(POSTWRIGHT_SANITIZED OFF)
  set(optimised "$<CONFIG:Release,RelWithDebInfo,MinSizeRel>")
  if(CMAKE_CXX_FLAGS MATCHES "-O[123s]")
    set(optimised 1)
  endif()
  target_compile_options(
    postwright-options INTERFACE "$<${optimised}:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>" -fstack-protector-strong
                                 -fstack-clash-protection)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|i.86")
    target_compile_options(postwright-options INTERFACE -fcf-protection)
  endif()
  target_link_options(postwright-options INTERFACE LINKER:-z,relro LINKER:-z,now)
endif()

# A sanitizer build is usually made once, often without ccache: reading the standard library only
# once saves a fifth of its time. Other builds do not do this, so that a missing include shows.
set(POSTWRIGHT_POSITION_INDEPENDENT ON)
if(POSTWRIGHT_SANITIZED AND NOT POSTWRIGHT_FUZZ)
  set(POSTWRIGHT_POSITION_INDEPENDENT OFF)  # the preset's -fPIC does it for programs too: they share the header
  file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/empty.cpp" CONTENT "")
  set(POSTWRIGHT_PRECOMPILED postwright-precompiled)
endif()

# In a sanitizer build, precompiles the standard library's headers and those named as TARGET.
function(postwright_precompile target)
  if(NOT POSTWRIGHT_PRECOMPILED)
    return()
  endif()
  add_library(${target} OBJECT "${PROJECT_BINARY_DIR}/empty.cpp")
  target_link_libraries(${target} PRIVATE postwright-options)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF CXX_VISIBILITY_PRESET hidden
                                             VISIBILITY_INLINES_HIDDEN ON)
  target_precompile_headers(
    ${target}
    PRIVATE
    <algorithm> <array> <atomic> <charconv> <chrono> <cstring> <filesystem> <fstream> <functional> <iostream>
    <map> <memory> <mutex> <optional> <set> <sstream> <string> <string_view> <thread> <unordered_map> <utility>
    <variant> <vector> ${ARGN})
endfunction()
postwright_precompile(postwright-precompiled)

# In a sanitizer build, has the folder's targets share what client/ precompiles for those with windows.
macro(postwright_precompile_windows)
  if(POSTWRIGHT_PRECOMPILED)
    set(POSTWRIGHT_PRECOMPILED postwright-precompiled-windows)
  endif()
endmacro()

# Gives TARGET our language level and warnings, hidden symbols and position-independent code.
function(postwright_configure target)
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:postwright-options>)
  if(POSTWRIGHT_PRECOMPILED)
    target_precompile_headers(${target} REUSE_FROM ${POSTWRIGHT_PRECOMPILED})
  endif()
  set_target_properties(
    ${target}
    PROPERTIES CXX_EXTENSIONS OFF
               CXX_VISIBILITY_PRESET hidden
               VISIBILITY_INLINES_HIDDEN ON
               POSITION_INDEPENDENT_CODE ${POSTWRIGHT_POSITION_INDEPENDENT})
endfunction()

# Optimises TARGET across its files in a release: a request passes through many small functions in
# many files, and inlining them saves a tenth of its time.
include(CheckIPOSupported)
check_ipo_supported(RESULT POSTWRIGHT_IPO OUTPUT POSTWRIGHT_IPO_FAULT LANGUAGES CXX)
function(postwright_optimise_whole target)
  if(POSTWRIGHT_IPO)
    set_target_properties(${target} PROPERTIES INTERPROCEDURAL_OPTIMIZATION_RELEASE ON)
  endif()
endfunction()

# Makes TARGET one of the shared libraries that hosts link: its version, its SONAME, and a version
# script that hides what visibility cannot, such as instances of the standard library's templates.
function(postwright_configure_library target)
  postwright_configure(${target})
  set(script "${PROJECT_SOURCE_DIR}/cmake/exports.map")
  target_link_options(${target} PRIVATE "LINKER:--version-script=${script}")
  set_target_properties(${target} PROPERTIES VERSION "${PROJECT_VERSION}" SOVERSION "${POSTWRIGHT_ABI_VERSION}"
                                             LINK_DEPENDS "${script}")
endfunction()

# Makes each HEADER (a path in the source tree) available as <postwright/NAME>, to the tree through
# a forwarding header, so that an include line reads the same before and after installation. The
# list is kept in the global property POSTWRIGHT_PUBLIC_HEADERS for installing and for the checks.
function(postwright_public_headers)
  foreach(header IN LISTS ARGN)
    cmake_path(ABSOLUTE_PATH header BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" NORMALIZE)
    cmake_path(GET header FILENAME name)
    file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/include/postwright/${name}" CONTENT "#include \"${header}\"\n")
    set_property(GLOBAL APPEND PROPERTY POSTWRIGHT_PUBLIC_HEADERS "${header}")
  endforeach()
endfunction()
