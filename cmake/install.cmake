# What `cmake --install` installs, and where. The component of a file is its Debian package.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(headers_dir ${CMAKE_INSTALL_INCLUDEDIR}/lumsmilparser)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/LumSmilParser)

# lum_install_library(target component "packages for pkg-config" description): the library and its .pc file.
function(lum_install_library target component requires description)
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN")
    install(TARGETS ${target} EXPORT LumSmilParserTargets
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${component} NAMELINK_COMPONENT dev)
    set(LIBRARY ${target})
    set(REQUIRES ${requires})
    set(DESCRIPTION ${description})
    configure_file(cmake/library.pc.in ${target}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${target}.pc
            DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
endfunction()

string(REGEX REPLACE "[^/]+" ".." prefix_from_pc ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
lum_install_library(lummmsutility platform "Qt6Core" "Settings, addresses and tables of the messaging programs")
lum_install_library(lummime platform "Qt6Core" "MIME types, their code numbers and file extensions")
if(LUM_BUILD_UI)
    lum_install_library(lummmsui platform "Qt6Gui" "Notices and icons of the messaging programs")
endif()
lum_install_library(lumsmilparser runtime "lummmsutility lummime Qt6Core Qt6Gui Qt6Xml"
                    "MMS messages: header, body and SMIL presentation")

# the public headers, with their folders: all that the umbrella header includes
file(STRINGS lumsmilparser.h includes REGEX "^#include \"")
if(NOT LUM_BUILD_UI)
    list(FILTER includes EXCLUDE REGEX "\"platform/ui/")
endif()
foreach(line lumsmilparser.h ${includes})
    string(REGEX REPLACE "^#include \"(.*)\"$" "\\1" header ${line})
    get_filename_component(folder ${header} DIRECTORY)
    install(FILES ${header} DESTINATION ${headers_dir}/${folder} COMPONENT dev)
endforeach()

install(EXPORT LumSmilParserTargets NAMESPACE LumSmilParser:: DESTINATION ${package_dir} COMPONENT dev)
configure_package_config_file(cmake/LumSmilParserConfig.cmake.in LumSmilParserConfig.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/LumSmilParserConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/LumSmilParserConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/LumSmilParserConfigVersion.cmake
        DESTINATION ${package_dir} COMPONENT dev)

install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/liblumsmilparser-dev COMPONENT dev)

if(LUM_BUILD_DOCS)
    find_program(LUM_DOXYGEN doxygen REQUIRED)
    list(TRANSFORM includes REPLACE "^#include \"(.*)\"$" "\\1" OUTPUT_VARIABLE headers)
    file(GLOB sources CONFIGURE_DEPENDS docs/* examples/*)
    add_custom_command(OUTPUT reference/html/index.html DEPENDS lumsmilparser.h ${headers} ${sources} VERBATIM
                       COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/docs/reference reference)
    add_custom_target(lum_reference ALL DEPENDS reference/html/index.html)
    install(DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/reference/html
            DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/liblumsmilparser-doc COMPONENT doc)
endif()

if(LUM_BUILD_TOOLS)
    file(RELATIVE_PATH libraries_from_bin /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
    set_target_properties(lummms PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries_from_bin}")
    install(TARGETS lummms DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
    install(FILES tools/lummms/completion.bash RENAME lummms
            DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tools)
    add_custom_command(OUTPUT lummms.1.gz DEPENDS docs/lummms.1 VERBATIM
                       COMMAND gzip -9nc ${CMAKE_CURRENT_SOURCE_DIR}/docs/lummms.1 > lummms.1.gz)
    add_custom_target(lummms_manual ALL DEPENDS lummms.1.gz)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/lummms.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)
endif()
