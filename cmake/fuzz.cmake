# One program for each fuzz/*_fuzz.cpp, with the library's code watched by the fuzzer and the sanitizers.
file(GLOB fuzz_sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/fuzz/*_fuzz.cpp)
foreach(source ${fuzz_sources})
    get_filename_component(name ${source} NAME_WE)
    add_executable(${name} ${source})
    target_link_libraries(${name} PRIVATE lumsmilparser)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
endforeach()

file(GLOB shown_sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/tools/lummms/*.cpp)
list(FILTER shown_sources EXCLUDE REGEX "/main.cpp$")
target_sources(message_fuzz PRIVATE ${shown_sources})

add_executable(write_seeds ${CMAKE_CURRENT_SOURCE_DIR}/fuzz/write_seeds.cpp)
target_link_libraries(write_seeds PRIVATE lumsmilparser)
target_compile_definitions(write_seeds PRIVATE
    SAMPLE_MESSAGE="${CMAKE_CURRENT_SOURCE_DIR}/tools/lummms/sample.mms")
