# The cross compiler for the processor in LUM_PORT_TRIPLET, and that processor's libraries.
set(CMAKE_SYSTEM_NAME Linux)
string(REGEX MATCH "^[^-]+" CMAKE_SYSTEM_PROCESSOR $ENV{LUM_PORT_TRIPLET})
set(CMAKE_CXX_COMPILER $ENV{LUM_PORT_TRIPLET}-g++)
set(CMAKE_LIBRARY_ARCHITECTURE $ENV{LUM_PORT_TRIPLET})
set(QT_HOST_PATH /usr)
