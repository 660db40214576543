# kernova_room(<name> [USES <room or library>...] [PCH <header>...])
#
# Makes the static library <name> of every source in the current folder. Others include its headers as
# "<name>/Header.h". The include path of a room holds that room alone, so that only rooms which are
# linked (USES) can be included: the arrows between the rooms are checked by the compiler.
function(kernova_room name)
    cmake_parse_arguments(ROOM "" "" "USES;PCH" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    if(NOT sources)
        return()
    endif()
    kernova_room_include(${name} include_dir)
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC ${include_dir})
    target_link_libraries(${name} PUBLIC ${ROOM_USES} PRIVATE kernova_compiler)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    if(ROOM_PCH)
        target_precompile_headers(${name} PRIVATE ${ROOM_PCH})
    endif()
endfunction()

# The folder that holds nothing but a link to the room's own folder.
function(kernova_room_include name result)
    set(dir ${CMAKE_BINARY_DIR}/include/${name})
    file(MAKE_DIRECTORY ${dir})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${dir}/${name} SYMBOLIC)
    set(${result} ${dir} PARENT_SCOPE)
endfunction()

# kernova_tests(<room> [USES <library>...] [LABELS <label>...])
#
# Makes one test program of every tst_*.cpp in the current folder and registers it with CTest.
# The target unit_tests builds all of them, and no more than they need.
function(kernova_tests room)
    if(NOT TARGET unit_tests)
        add_custom_target(unit_tests)
    endif()
    cmake_parse_arguments(TESTS "" "" "USES;LABELS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS tst_*.cpp)
    foreach(source ${sources})
        get_filename_component(test ${source} NAME_WE)
        set(target ${room}_${test})
        add_executable(${target} ${source})
        target_link_libraries(${target} PRIVATE ${TESTS_USES} tests_support kernova_compiler kernova_unoptimised)
        target_precompile_headers(${target} REUSE_FROM tests_support)
        set_target_properties(${target} PROPERTIES AUTOMOC ON RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
        add_dependencies(unit_tests ${target})
        add_test(NAME ${room}.${test} COMMAND ${target})
        set_tests_properties(${room}.${test} PROPERTIES TIMEOUT 120 LABELS "unit;${TESTS_LABELS}"
            ENVIRONMENT "QT_QPA_PLATFORM=minimal;KERNOVA_SERVICE_PROGRAM=${CMAKE_BINARY_DIR}/bin/kernova-service")
    endforeach()
endfunction()

# kernova_fuzz(<target> <source> <library>...)
#
# Makes a fuzz target, which the target fuzz_targets builds with all others; nothing without KERNOVA_FUZZ.
function(kernova_fuzz target source)
    if(NOT KERNOVA_FUZZ)
        return()
    endif()
    if(NOT TARGET fuzz_targets)
        add_custom_target(fuzz_targets)
    endif()
    add_executable(${target} ${source})
    target_link_libraries(${target} PRIVATE ${ARGN} kernova_compiler)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer)
    target_link_options(${target} PRIVATE -fsanitize=fuzzer)
    add_dependencies(fuzz_targets ${target})
endfunction()
