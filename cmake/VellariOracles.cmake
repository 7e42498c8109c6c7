# Independent libraries that results are compared with; only tests and benchmarks link them.

if(NOT TARGET Oracles)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(PROJ REQUIRED IMPORTED_TARGET GLOBAL proj)
    pkg_check_modules(GEOGRAPHICLIB REQUIRED IMPORTED_TARGET GLOBAL geographiclib)
    add_library(Oracles INTERFACE)
    target_link_libraries(Oracles INTERFACE PkgConfig::PROJ PkgConfig::GEOGRAPHICLIB)
endif()
