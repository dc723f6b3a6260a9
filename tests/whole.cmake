# Tests of examples, documents, interface and installation.

file(GLOB examples CONFIGURE_DEPENDS examples/*.cpp)
foreach(source ${examples})
    get_filename_component(example ${source} NAME_WE)
    add_executable(${example} ${source})
    target_link_libraries(${example} PRIVATE lumsmilparser)
    add_dependencies(examples_test ${example})
endforeach()
target_compile_definitions(examples_test PRIVATE EXAMPLES="$<TARGET_FILE_DIR:read_message>")

set(libraries lummmsutility lummime lumsmilparser)
if(LUM_BUILD_UI)
    list(APPEND libraries lummmsui)
endif()
foreach(library ${libraries})
    add_test(NAME symbols_${library} COMMAND tests/symbols/compare ${CMAKE_NM} $<TARGET_FILE:${library}>
             tests/symbols/${library}.txt WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
endforeach()

add_test(NAME floors COMMAND tests/floors/check qt2 platform util,codec multipart smil/model,wire smil/parser tools
         WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
set(readme ${CMAKE_CURRENT_SOURCE_DIR}/tests/documents/readme)
if(LUM_BUILD_TOOLS)
    add_test(NAME completion COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tests/documents/completion $<TARGET_FILE:lummms>)
    add_test(NAME readme COMMAND ${readme} $<TARGET_FILE:lummms>)
    add_test(NAME sample COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tests/documents/sample $<TARGET_FILE:lummms>
             ${CMAKE_CURRENT_SOURCE_DIR}/tools/lummms/sample.mms $<TARGET_FILE:compose_message>)
    add_test(NAME man_page COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tests/documents/man_page $<TARGET_FILE:lummms>
             ${CMAKE_CURRENT_SOURCE_DIR}/tools/lummms/sample.mms)
else()
    add_test(NAME readme COMMAND ${readme})
endif()

# a program built without the sanitizers cannot use libraries built with them
if(NOT LUM_SANITIZE)
    add_test(NAME install COMMAND ${CMAKE_COMMAND} --install ${CMAKE_BINARY_DIR}
             --prefix ${CMAKE_BINARY_DIR}/installed)
    add_test(NAME outside_program COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tests/install/check
             ${CMAKE_BINARY_DIR}/installed ${CMAKE_BINARY_DIR}/outside)
    set_tests_properties(install PROPERTIES FIXTURES_SETUP installation)
    set_tests_properties(outside_program PROPERTIES FIXTURES_REQUIRED installation
                         ENVIRONMENT CXX=${CMAKE_CXX_COMPILER})
endif()
