# What every target of the tree shares: language, warnings, visibility, and the rules that give
# the same bits from every compiler.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

add_library(torlib_options INTERFACE)
target_include_directories(torlib_options INTERFACE ${CMAKE_SOURCE_DIR})
# Contraction would fuse a*b+c into one rounding on some machines and not on others.
target_compile_options(torlib_options INTERFACE -ffp-contract=off -Wall -Wextra -Wpedantic -Wshadow
                                                -Wconversion -Wno-sign-conversion)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # gcc 12 sees overlapping copies in "literal" + std::string (gcc bug 105651).
  target_compile_options(torlib_options INTERFACE -Wno-restrict)
endif()
if(TORLIB_WARNINGS_AS_ERRORS)
  target_compile_options(torlib_options INTERFACE -Werror)
endif()
if(TORLIB_SANITIZE)
  set(TORLIB_SANITIZERS address,undefined)
elseif(TORLIB_SANITIZE_THREADS)
  set(TORLIB_SANITIZERS thread)
endif()
if(TORLIB_SANITIZERS)
  target_compile_options(torlib_options INTERFACE -fsanitize=${TORLIB_SANITIZERS}
                                                  -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(torlib_options INTERFACE -fsanitize=${TORLIB_SANITIZERS})
endif()

# torlib_room(NAME SOURCES ... NEEDS ...): one room of the library, a static library of its own, so
# that a call into a room that is not listed under NEEDS fails to link in that room's tests.
function(torlib_room NAME)
  cmake_parse_arguments(ROOM "" "" "SOURCES;NEEDS" ${ARGN})
  add_library(torlib_${NAME} STATIC ${ROOM_SOURCES})
  target_link_libraries(torlib_${NAME} PUBLIC torlib_options)
  foreach(need ${ROOM_NEEDS})
    target_link_libraries(torlib_${NAME} PUBLIC torlib_${need})
  endforeach()
endfunction()
