# The library once more with full debug information, and the description of its binary interface that is made of it:
# VELLARI_ABI_XML. Empty where it can't be: clang describes the standard library's types in another way than the
# baseline, the instrumented builds show names of their own.
set(VELLARI_ABI_XML)
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU" OR VELLARI_SANITIZE OR VELLARI_COVERAGE)
    return()
endif()
find_program(VELLARI_ABIDW abidw REQUIRED DOC "Describes the binary interface; Debian abigail-tools")
set(abi_folder "${PROJECT_BINARY_DIR}/abi")
set(VELLARI_ABI_XML "${abi_folder}/Vellari.abi")

add_library(VellariDescribed SHARED ${library_sources})
set_target_properties(VellariDescribed PROPERTIES
    PREFIX "" SUFFIX ".so" OUTPUT_NAME Vellari LIBRARY_OUTPUT_DIRECTORY "${abi_folder}")
vellari_public_includes(VellariDescribed)
vellari_exports(VellariDescribed cmake/Vellari.map)
# Unoptimised, so that no function is lost to the ones that call it; with every class, since g++ leaves those whose
# virtual table lies elsewhere undescribed and their changes would go unseen; and without the path of the tree.
set(abi_flags -O0 -g -femit-class-debug-always)
target_compile_options(VellariDescribed PRIVATE ${abi_flags} "-fdebug-prefix-map=${PROJECT_SOURCE_DIR}/=")
target_link_libraries(VellariDescribed PRIVATE VellariHostKit ${CMAKE_DL_LIBS})
vellari_precompile(VellariDescribed)

set(abi_tool "${PROJECT_SOURCE_DIR}/tools/abi")
add_custom_command(
    OUTPUT "${VELLARI_ABI_XML}"
    COMMAND "${abi_tool}" --describe $<TARGET_FILE:VellariDescribed> "${VELLARI_ABI_XML}"
    DEPENDS VellariDescribed "${abi_tool}"
    COMMENT "Describing the binary interface"
    VERBATIM)
add_custom_target(vellari_abi ALL DEPENDS "${VELLARI_ABI_XML}")

add_test(NAME abi.NothingChangedSinceTheBaseline COMMAND "${abi_tool}" --check "${PROJECT_BINARY_DIR}")
add_test(NAME abi.TheCheckSeesEveryKindOfChange
    COMMAND "${PROJECT_SOURCE_DIR}/tests/abi/every_kind_of_change.sh" "${abi_tool}" "${CMAKE_CXX_COMPILER}" ${abi_flags})
set_tests_properties(abi.NothingChangedSinceTheBaseline abi.TheCheckSeesEveryKindOfChange PROPERTIES TIMEOUT 300)
