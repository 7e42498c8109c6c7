# Compiler, flags and the small functions that the rooms are built with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}")

# Contraction would change the last bit of a product between processors; results must not depend on the build.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # As clang does it: a host that replaces one of our names replaces it for itself, so that we may inline it here.
    add_compile_options(-fno-semantic-interposition)
    # Without link-time optimisation g++ 12 takes the assignment of a short literal for one that overlaps itself.
    add_compile_options(-Wno-restrict)
endif()
if(VELLARI_WERROR)
    add_compile_options(-Werror)
endif()
set(CMAKE_CXX_FLAGS_RELEASE "-O3 -DNDEBUG" CACHE STRING "Flags of a release build")

if(VELLARI_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # Instrumented, g++ 12 takes its own std::function for uninitialised; the plain builds keep the warning.
        add_compile_options(-Wno-maybe-uninitialized)
    endif()
endif()
if(VELLARI_TSAN)
    if(VELLARI_SANITIZE)
        message(FATAL_ERROR "VELLARI_TSAN and VELLARI_SANITIZE exclude each other: set one of them to OFF")
    endif()
    add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
    add_link_options(-fsanitize=thread)
endif()
if(VELLARI_COVERAGE)
    add_compile_options(--coverage -fprofile-update=atomic)
    add_link_options(--coverage)
endif()

# A library of some rooms leaves names of the others open; executables may then be linked all the same.
function(vellari_missing_rooms result)
    set(missing ${all_rooms})
    list(REMOVE_ITEM missing ${VELLARI_ROOMS} bench tools)
    if(missing)
        message(STATUS "Rooms left out: ${missing}")
        add_link_options(-Wl,--allow-shlib-undefined -Wl,-z,lazy)
    endif()
    set(${result} "${missing}" PARENT_SCOPE)
endfunction()

# The launcher knows precompiled headers only with these allowances.
find_program(VELLARI_CCACHE ccache DOC "Compiler cache; used when present")
if(VELLARI_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER
        "${CMAKE_COMMAND}" -E env "CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime"
        "${VELLARI_CCACHE}")
endif()

# Hosts write `#include <Vellari/Vellari.h>`; the build tree offers the same spelling as an installed one.
set(VELLARI_BUILD_INCLUDE "${PROJECT_BINARY_DIR}/include")
set(VELLARI_HEADER_ROOMS frame core shell hostkit)
file(MAKE_DIRECTORY "${VELLARI_BUILD_INCLUDE}/Vellari")
foreach(room IN LISTS VELLARI_HEADER_ROOMS)
    file(CREATE_LINK "${PROJECT_SOURCE_DIR}/${room}" "${VELLARI_BUILD_INCLUDE}/Vellari/${room}" SYMBOLIC)
endforeach()
file(CONFIGURE OUTPUT "${VELLARI_BUILD_INCLUDE}/Vellari/Vellari.h"
    CONTENT "#pragma once\n\n#include \"shell/refsystems/public/Vellari.h\"\n" @ONLY)

# Gathers the sources of those of the given rooms that are configured. A room is a folder with all below it.
function(vellari_sources result)
    set(found)
    foreach(room IN LISTS ARGN)
        string(REGEX REPLACE "/vellari$" "" listed "${room}")
        if(listed IN_LIST VELLARI_ROOMS)
            file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${room}/*.cpp")
            list(APPEND found ${sources})
        endif()
    endforeach()
    if(NOT found)
        # A library needs at least one source, also while its rooms are empty.
        set(found "${PROJECT_BINARY_DIR}/generated/empty.cpp")
        file(CONFIGURE OUTPUT "${found}" CONTENT "\n" @ONLY)
    endif()
    set(${result} ${found} PARENT_SCOPE)
endfunction()

function(vellari_public_includes target)
    target_include_directories(${target} PUBLIC
        "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>"
        "$<BUILD_INTERFACE:${VELLARI_BUILD_INCLUDE}>"
        "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>"
        "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/Vellari>")
    target_compile_features(${target} INTERFACE cxx_std_20)
    # Both libraries lie in one folder, in the build tree as in an installed one.
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN" BUILD_WITH_INSTALL_RPATH ON)
endfunction()

# Most of a library's compilation goes into the standard headers; this halves it. Sources still include what they
# use: the checks of the code read them without it.
function(vellari_precompile target)
    if(VELLARI_PCH)
        target_precompile_headers(${target} PRIVATE
            <algorithm> <array> <cmath> <cstdint> <functional> <limits> <map> <memory> <optional> <span> <stdexcept>
            <string> <string_view> <utility> <vector>)
        if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
            # The time stamp would defeat the compiler cache.
            target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
        endif()
    endif()
endfunction()

# Exports the names of a version script and nothing else.
function(vellari_exports target script)
    # The sanitizers compare type records by address, so under them every library shows all of its own.
    if(NOT VELLARI_SANITIZE)
        target_link_options(${target} PRIVATE "-Wl,--version-script=${PROJECT_SOURCE_DIR}/${script}")
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${PROJECT_SOURCE_DIR}/${script}")
    endif()
endfunction()

if(VELLARI_LTO AND CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT VELLARI_SANITIZE AND NOT VELLARI_COVERAGE)
    include(CheckIPOSupported)
    check_ipo_supported(RESULT VELLARI_LTO_WORKS LANGUAGES CXX)
endif()

function(vellari_optimise target)
    if(VELLARI_LTO_WORKS)
        set_target_properties(${target} PROPERTIES INTERPROCEDURAL_OPTIMIZATION_RELEASE ON)
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
            # g++ 12 sees overruns in its own std::string when it inlines across files; the compile steps still warn.
            # An archive is inlined where it is linked.
            set(scope PRIVATE)
            get_target_property(type ${target} TYPE)
            if(type STREQUAL "STATIC_LIBRARY")
                set(scope INTERFACE)
            endif()
            target_link_options(${target} ${scope}
                -Wno-stringop-overread -Wno-stringop-overflow -Wno-array-bounds -Wno-restrict)
        endif()
    endif()
endfunction()
