# Turns text files into one source, so that a program works without any file beside it.

# Appends to the list `result` a generated source with the texts of all `folder/*.txt`, as `kind`:
#   table: `std::span<EmbeddedFile const> embeddedCatalog()`, one row a file, named without its extension
#   text:  `std::string_view embeddedResources()`, the files one after the other
# `header` declares the function in `namespace`. Nothing is generated while the folder or the header is missing.
function(vellari_embed result folder header namespace kind)
    file(GLOB texts CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${folder}/*.txt")
    string(REGEX MATCH "^[^/]+" room "${header}")
    if(NOT texts OR NOT EXISTS "${PROJECT_SOURCE_DIR}/${header}" OR NOT room IN_LIST VELLARI_ROOMS)
        return()
    endif()
    string(REPLACE "/" "_" stem "${folder}")
    set(output "${PROJECT_BINARY_DIR}/generated/${stem}.cpp")
    set(script "${PROJECT_SOURCE_DIR}/cmake/EmbedTexts.cmake")
    add_custom_command(
        OUTPUT "${output}"
        COMMAND "${CMAKE_COMMAND}" "-DOUTPUT=${output}" "-DFOLDER=${PROJECT_SOURCE_DIR}/${folder}"
            "-DHEADER=${header}" "-DNAMESPACE=${namespace}" "-DKIND=${kind}" -P "${script}"
        DEPENDS ${texts} "${script}"
        COMMENT "Embedding ${folder}"
        VERBATIM)
    set_source_files_properties("${output}" PROPERTIES COMPILE_OPTIONS -Wno-overlength-strings)
    set(${result} ${${result}} "${output}" PARENT_SCOPE)
endfunction()
