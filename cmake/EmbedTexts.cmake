# Script: writes OUTPUT, a C++ source with the texts of FOLDER/*.txt as raw string literals (bytes unchanged).
# HEADER, NAMESPACE and KIND are those of `vellari_embed`.

cmake_minimum_required(VERSION 3.25)
file(GLOB texts "${FOLDER}/*.txt")
list(SORT texts)

set(rows "")
set(literals "")
foreach(path IN LISTS texts)
    get_filename_component(name "${path}" NAME_WLE)
    file(READ "${path}" text)
    if(text MATCHES "\\)vellari\"")
        message(FATAL_ERROR "${path}: the text holds the mark )vellari\" that ends an embedded text")
    endif()
    string(APPEND rows "    {\"${name}\", R\"vellari(${text})vellari\"},\n")
    string(APPEND literals "    R\"vellari(${text})vellari\"\n")
endforeach()

set(source "#include \"${HEADER}\"\n\n#include <iterator>\n\nnamespace ${NAMESPACE} {\n\nnamespace {\n\n")
if(KIND STREQUAL "table")
    string(APPEND source "constexpr EmbeddedFile files[] = {\n${rows}};\n\n} // namespace\n\n"
        "std::span<EmbeddedFile const> embeddedCatalog() {\n    return files;\n}\n")
elseif(KIND STREQUAL "text")
    string(APPEND source "constexpr char text[] =\n${literals};\n\n} // namespace\n\n"
        "std::string_view embeddedResources() {\n    return {text, std::size(text) - 1};\n}\n")
else()
    message(FATAL_ERROR "KIND is \"${KIND}\"; it must be table or text")
endif()
string(APPEND source "\n} // namespace ${NAMESPACE}\n")
file(WRITE "${OUTPUT}" "${source}")
