# The tests that use threads: `tests_threads`. Under the thread sanitizer they are all that is built, together with
# the tests of the rooms that start threads, the example that does, and a program whose race has to be reported.
# Included by the tests.

if(missing_rooms)
    return()
endif()

set(threads_libraries)
set(threads_left_out threads/race)
if(TARGET VellariGrids)
    set(threads_libraries VellariGrids TIFF::TIFF)
else()
    list(APPEND threads_left_out threads/GridsTest.cpp)
endif()
vellari_test(tests_threads FOLDERS threads WITHOUT ${threads_left_out} LIBRARIES ${threads_libraries})
target_sources(tests_threads PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/docs/Document.cpp")
if(NOT VELLARI_TSAN)
    return()
endif()

foreach(room frame core shell hostkit)
    file(GLOB_RECURSE room_tests CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${room}/*Test.cpp")
    foreach(source IN LISTS room_tests)
        file(STRINGS "${source}" threads_in_it REGEX "std::(jthread|thread|async)" LIMIT_COUNT 1)
        if(threads_in_it AND (TARGET VellariGrids OR NOT source MATCHES "/hostkit/grids/"))
            target_sources(tests_threads PRIVATE "${source}")
        endif()
    endforeach()
endforeach()

add_executable(example_embedding "${PROJECT_SOURCE_DIR}/examples/embedding/main.cpp")
target_link_libraries(example_embedding PRIVATE Vellari::HostKit)
add_test(NAME threads.TheExampleIsFreeOfRaces COMMAND example_embedding "${PROJECT_SOURCE_DIR}/catalog")

# Races in both libraries, and the function that the report has to name.
add_executable(deliberate_race "${CMAKE_CURRENT_SOURCE_DIR}/threads/race/main.cpp")
target_link_libraries(deliberate_race PRIVATE test_support)
foreach(race core:GetFirstTransform shell:GetFirstTransform writer:SetAttributeMode)
    string(REGEX MATCH "^([a-z]+):(.*)$" matched "${race}")
    set(name "${CMAKE_MATCH_1}")
    set(function "${CMAKE_MATCH_2}")
    add_test(NAME threads.ARaceIsReported.${name} COMMAND deliberate_race ${name})
    set_tests_properties(threads.ARaceIsReported.${name} PROPERTIES
        PASS_REGULAR_EXPRESSION "ThreadSanitizer: data race.*${function}")
endforeach()
