# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later

# What every target of ours is compiled with, in one place.
add_library(project_options INTERFACE)
target_compile_features(project_options INTERFACE cxx_std_20)
target_compile_options(project_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wold-style-cast -Wnon-virtual-dtor -Wshadow)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 mistakes joined strings for overlapping copies (its bug 105651).
    target_compile_options(project_options INTERFACE -Wno-restrict)
endif()
if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Several files are compiled as one, which GCC mistakes for a header that exposes what it should hide.
    target_compile_options(project_options INTERFACE -Wno-subobject-linkage)
endif()
target_compile_definitions(project_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CONTEXTLESS_CONNECT)
# A program loads only the libraries that it calls.
target_link_options(project_options INTERFACE LINKER:--as-needed)

# Releases are hardened as distributions do it: checked stacks and copies, tables that are read-only once the
# program has started, code at a random address in each start.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(hardening -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
foreach(flag -fstack-clash-protection -fcf-protection)
    string(MAKE_C_IDENTIFIER "COMPILES_WITH${flag}" compiles)
    check_cxx_compiler_flag(${flag} ${compiles})
    if(${compiles})
        list(APPEND hardening ${flag})
    endif()
endforeach()
target_compile_options(project_options INTERFACE "$<$<CONFIG:Release>:${hardening}>")
target_link_options(project_options INTERFACE "$<$<CONFIG:Release>:LINKER:-z,relro;LINKER:-z,now>")
if(WERROR)
    target_compile_options(project_options INTERFACE -Werror)
endif()
if(VELMORA_SANITIZE)
    add_compile_options(-fsanitize=${VELMORA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${VELMORA_SANITIZE})
endif()

# One room: a static library that links the rooms that it includes from and no others.
# Every include names its room: "shell/Settings.h", "drive/Drive.h".
function(add_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(${name} STATIC ${ROOM_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/src/platform)
    target_link_libraries(${name} PUBLIC ${ROOM_PUBLIC} PRIVATE project_options ${ROOM_PRIVATE})
    remember_rooms(${name})
endfunction()

# Lets the targets of this folder be among the rooms that write_rooms tells; add_room does so by itself.
function(remember_rooms)
    set_property(GLOBAL APPEND PROPERTY VELMORA_ROOMS ${ARGN})
endfunction()

# Writes rooms.txt into the build folder, for the test that compares includes with links. A line for each room: its
# name, its folder, the targets that its users link with it, those that it links for itself, its sources.
function(write_rooms)
    get_property(rooms GLOBAL PROPERTY VELMORA_ROOMS)
    set(lines "")
    foreach(room ${rooms})
        set(line ${room})
        foreach(property SOURCE_DIR INTERFACE_LINK_LIBRARIES LINK_LIBRARIES SOURCES)
            get_target_property(value ${room} ${property})
            if(NOT value)
                set(value "")
            endif()
            string(APPEND line "|${value}")
        endforeach()
        string(APPEND lines "${line}\n")
    endforeach()
    file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/rooms.txt CONTENT "${lines}" @ONLY)
endfunction()

# Lets a room have forms: each FORM.ui among its sources gives it ui_FORM.h. What is generated isn't ours to lint.
function(use_forms room)
    set_target_properties(${room} PROPERTIES AUTOUIC ON)
    target_include_directories(${room} SYSTEM PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${room}_autogen/include)
endfunction()
