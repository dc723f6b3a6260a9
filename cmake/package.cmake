# The Debian packages made by `cpack` from an installation below /usr, one for each component.
set(LUM_MAINTAINER "LumSmilParser maintainers <maintainers@localhost>" CACHE STRING "Maintainer of the packages")
set(LUM_LICENSE_FILE "" CACHE FILEPATH "Copyright and licence, the copyright file of the packages")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME lumsmilparser)
set(CPACK_PACKAGE_CONTACT "${LUM_MAINTAINER}")
string(REGEX REPLACE " *<.*" "" CPACK_PACKAGE_VENDOR "${LUM_MAINTAINER}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# dpkg-shlibdeps finds dependencies on other packages; those between these packages are listed below.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_CURRENT_BINARY_DIR})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=") # a later version with the same soname also serves

# the changelog and the copyright file of every package
set(copyright ${LUM_LICENSE_FILE})
if(NOT copyright)
    set(copyright ${CMAKE_CURRENT_BINARY_DIR}/copyright)
    configure_file(cmake/copyright.in copyright @ONLY)
endif()
add_custom_command(OUTPUT changelog.gz DEPENDS CHANGELOG.md cmake/debian_changelog VERBATIM
                   COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/cmake/debian_changelog "${LUM_MAINTAINER}"
                           < ${CMAKE_CURRENT_SOURCE_DIR}/CHANGELOG.md | gzip -9n > changelog.gz)
add_custom_target(lum_changelog ALL DEPENDS changelog.gz)

# lum_package(component name section description)
macro(lum_package component name section description)
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name}
            COMPONENT ${component} EXCLUDE_FROM_ALL)
    install(FILES ${copyright} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} RENAME copyright
            COMPONENT ${component} EXCLUDE_FROM_ALL)
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
    set(CPACK_COMPONENT_${upper}_DESCRIPTION "${description}")
    string(REGEX REPLACE "\n.*" "" CPACK_COMPONENT_${upper}_DISPLAY_NAME "${description}")
endmacro()

lum_package(platform liblumsmilparser-platform1 libs "platform libraries of liblumsmilparser
Settings, addresses, MIME tables and notices shared by messaging programs.")
set(CPACK_DEBIAN_PLATFORM_PACKAGE_DEPENDS shared-mime-info) # the MIME database with file extensions

lum_package(runtime liblumsmilparser1 libs "library to read, edit and write MMS messages
Decodes and encodes the binary message header, the multipart body and the\nSMIL presentation.")
set(CPACK_COMPONENT_RUNTIME_DEPENDS platform)

# run ldconfig when libraries were installed or removed
foreach(component PLATFORM RUNTIME)
    set(CPACK_DEBIAN_${component}_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/cmake/triggers)
endforeach()

lum_package(dev liblumsmilparser-dev libdevel "development files of liblumsmilparser
Headers, CMake package, pkg-config files and examples.")
set(CPACK_COMPONENT_DEV_DEPENDS runtime platform)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS qt6-base-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SUGGESTS liblumsmilparser-doc)

if(LUM_BUILD_DOCS)
    lum_package(doc liblumsmilparser-doc doc "reference of liblumsmilparser
The programming interface of the library, as web pages.")
    set(CPACK_DEBIAN_DOC_PACKAGE_ARCHITECTURE all)
endif()

if(LUM_BUILD_TOOLS)
    lum_package(tools lummms utils "show, check and make MMS messages
Command-line program that takes multimedia messages apart, composes them and\ndraws their slides.")
    set(CPACK_COMPONENT_TOOLS_DEPENDS runtime platform)
    set(CPACK_DEBIAN_TOOLS_PACKAGE_RECOMMENDS fonts-dejavu-core) # lummms render needs a font
endif()

include(CPack)
