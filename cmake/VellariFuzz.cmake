# What takes bytes from outside, in a library that `tests_fuzz` replays in every build; and, under the sanitizers of
# clang, a fuzzer of libFuzzer for each of them, which tools/fuzz runs.

set(fuzz_folder "${PROJECT_SOURCE_DIR}/tests/fuzz")
file(GLOB fuzz_sources CONFIGURE_DEPENDS "${fuzz_folder}/targets/*.cpp")
if(NOT TARGET VellariGrids)
    list(FILTER fuzz_sources EXCLUDE REGEX "/GridsTarget\\.cpp$")
endif()
add_library(fuzz_targets STATIC ${fuzz_sources})
target_link_libraries(fuzz_targets PUBLIC test_support vellari_tool)
if(TARGET VellariGrids)
    target_compile_definitions(fuzz_targets PUBLIC VELLARI_FUZZ_GRIDS)
    target_link_libraries(fuzz_targets PRIVATE TIFF::TIFF)
endif()

set(VELLARI_FUZZ OFF)
if(VELLARI_SANITIZE AND CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    include(CheckCXXSourceCompiles)
    set(CMAKE_REQUIRED_FLAGS "-fsanitize=fuzzer")
    set(CMAKE_TRY_COMPILE_TARGET_TYPE EXECUTABLE)
    check_cxx_source_compiles("
        #include <cstddef>
        #include <cstdint>
        extern \"C\" int LLVMFuzzerTestOneInput(std::uint8_t const*, std::size_t) { return 0; }"
        VELLARI_FUZZER_LINKS)
    unset(CMAKE_REQUIRED_FLAGS)
    set(VELLARI_FUZZ ${VELLARI_FUZZER_LINKS})
endif()
if(NOT VELLARI_FUZZ)
    return()
endif()

# The libraries tell the fuzzer which of their branches an input has reached; other programs don't listen. A number
# that is cut to an int out of its range is no part of what the sanitizers look for by themselves.
foreach(library Vellari VellariHostKit VellariGrids vellari_tool fuzz_targets)
    if(TARGET ${library})
        target_compile_options(${library} PRIVATE -fsanitize=fuzzer-no-link,float-cast-overflow)
    endif()
endforeach()

add_executable(fuzz_seeds "${fuzz_folder}/programs/WriteSeeds.cpp")
target_link_libraries(fuzz_seeds PRIVATE fuzz_targets)
set(fuzzers fuzz_seeds)
foreach(source IN LISTS fuzz_sources)
    # FloatTableTarget.cpp is the target float_table.
    get_filename_component(name "${source}" NAME_WE)
    if(name MATCHES "^(.+)Target$")
        string(REGEX REPLACE "([a-z])([A-Z])" "\\1_\\2" name "${CMAKE_MATCH_1}")
        string(TOLOWER "${name}" name)
        add_executable(fuzz_${name} "${fuzz_folder}/programs/Fuzzer.cpp")
        target_compile_definitions(fuzz_${name} PRIVATE VELLARI_FUZZ_TARGET="${name}")
        target_link_libraries(fuzz_${name} PRIVATE fuzz_targets)
        target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
        list(APPEND fuzzers fuzz_${name})
    endif()
endforeach()
set_target_properties(${fuzzers} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/fuzz")
add_custom_target(fuzzers DEPENDS ${fuzzers})
