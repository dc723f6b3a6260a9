# The Debian packages that `cpack` makes of an installation below /usr, one for each component.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME lumsmilparser)
set(CPACK_PACKAGE_VENDOR "LumSmilParser maintainers")
set(CPACK_PACKAGE_CONTACT "LumSmilParser maintainers <maintainers@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_COMPONENTS_ALL runtime platform dev)
if(LUM_BUILD_TOOLS)
    list(APPEND CPACK_COMPONENTS_ALL tools)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# What the libraries link is found in the files themselves; what they link of each other stands below.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_CURRENT_BINARY_DIR})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=") # later versions of the same soname serve as well

# lum_package(component name section description)
macro(lum_package component name section description)
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
    set(CPACK_COMPONENT_${upper}_DESCRIPTION "${description}")
    string(REGEX REPLACE "\n.*" "" CPACK_COMPONENT_${upper}_DISPLAY_NAME "${description}")
endmacro()

lum_package(platform liblumsmilparser-platform1 libs "platform libraries of liblumsmilparser
Settings, MIME tables and notices that the messaging programs share.")
lum_package(runtime liblumsmilparser1 libs "reads, edits and writes MMS messages
The library behind a messaging program: the binary message header, the\nmultipart body and the SMIL presentation.")
lum_package(dev liblumsmilparser-dev libdevel "development files of liblumsmilparser
Headers, CMake package and pkg-config files.")
lum_package(tools lummms utils "shows, checks and makes MMS messages
A command-line program that takes messages apart, composes them and draws\ntheir slides.")

set(CPACK_DEBIAN_PLATFORM_PACKAGE_DEPENDS shared-mime-info) # the registry of file extensions
set(CPACK_COMPONENT_RUNTIME_DEPENDS platform)
set(CPACK_COMPONENT_DEV_DEPENDS runtime platform)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS qt6-base-dev)
set(CPACK_COMPONENT_TOOLS_DEPENDS runtime platform)
set(CPACK_DEBIAN_TOOLS_PACKAGE_RECOMMENDS fonts-dejavu-core) # slides are drawn with some font

include(CPack)
