# The fuzz targets, fuzz/*_fuzz.cpp: each as TARGET_fuzz with libFuzzer, and as replay_TARGET, which the tests
# run on stored inputs with any compiler.
set(LUM_FUZZ_TARGETS header body wire smil records message)

# lum_fuzz_program(name target source...): a program of one fuzz target.
function(lum_fuzz_program name target)
    add_executable(${name} fuzz/${target}_fuzz.cpp ${ARGN})
    target_link_libraries(${name} PRIVATE lumsmilparser)
    if(target STREQUAL message) # reads messages like lummms show
        target_link_libraries(${name} PRIVATE lummmsprogram)
    endif()
endfunction()

add_executable(write_seeds fuzz/write_seeds.cpp)
target_link_libraries(write_seeds PRIVATE lumsmilparser)
target_compile_definitions(write_seeds PRIVATE
    SAMPLE_MESSAGE="${CMAKE_CURRENT_SOURCE_DIR}/tools/lummms/sample.mms")

if(LUM_BUILD_FUZZERS)
    foreach(target ${LUM_FUZZ_TARGETS})
        lum_fuzz_program(${target}_fuzz ${target})
        target_link_options(${target}_fuzz PRIVATE -fsanitize=fuzzer)
    endforeach()
endif()

if(LUM_BUILD_TESTS)
    add_test(NAME write_seeds COMMAND write_seeds ${CMAKE_BINARY_DIR}/seeds)
    set_tests_properties(write_seeds PROPERTIES FIXTURES_SETUP seeds)
    foreach(target ${LUM_FUZZ_TARGETS})
        lum_fuzz_program(replay_${target} ${target} fuzz/replay.cpp)
        add_test(NAME replay_${target} COMMAND replay_${target}
                 ${CMAKE_CURRENT_SOURCE_DIR}/tests/data/${target} ${CMAKE_BINARY_DIR}/seeds/${target})
        set_tests_properties(replay_${target} PROPERTIES FIXTURES_REQUIRED seeds ENVIRONMENT TZ=UTC)
    endforeach()
endif()
