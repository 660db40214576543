# Warnings, sanitizers, compiler cache and linker: the same for every target.

add_library(kernova_compiler INTERFACE)
target_compile_options(kernova_compiler INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    # Qt's logging macros are called without the arguments that they can take.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>
    $<$<BOOL:${KERNOVA_WERROR}>:-Werror>)
target_compile_definitions(kernova_compiler INTERFACE
    QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
    QT_DEPRECATED_WARNINGS)

# The fuzzer follows what its inputs reach in all rooms, not in the target alone.
if(KERNOVA_FUZZ)
    target_compile_options(kernova_compiler INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(KERNOVA_SANITIZE)
    target_compile_options(kernova_compiler INTERFACE
        -fsanitize=address,undefined -fno-sanitize=vptr -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(kernova_compiler INTERFACE -fsanitize=address,undefined -fno-sanitize=vptr)
endif()

find_program(KERNOVA_CCACHE ccache)
if(KERNOVA_CCACHE)
    # Precompiled headers are cached only when ccache may overlook their time stamps.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        ${KERNOVA_CCACHE})
    target_compile_options(kernova_compiler INTERFACE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endif()

find_program(KERNOVA_MOLD mold)
find_program(KERNOVA_LLD ld.lld)
if(KERNOVA_MOLD)
    target_link_options(kernova_compiler INTERFACE -fuse-ld=mold)
elseif(KERNOVA_LLD)
    target_link_options(kernova_compiler INTERFACE -fuse-ld=lld)
endif()

# Test programs are compiled far more often than they run: their own code isn't optimised in any build.
add_library(kernova_unoptimised INTERFACE)
target_compile_options(kernova_unoptimised INTERFACE -O0)
