set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # A precompiled header is only cached when ccache may trust its defines and time stamps. What a file depends on comes
  # from the compiler: a run of the preprocessor before each compilation is a tenth of the time of a build.
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env CCACHE_DEPEND=1
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime "${CCACHE}")
endif()

# What every target of our own is compiled with. Foreign headers come in as system headers and stay out of it.
add_library(quillstacks_compiler INTERFACE)
target_compile_options(quillstacks_compiler INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wunused
  -Wold-style-cast -Werror
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wlogical-op -fpch-preprocess>)
target_compile_definitions(quillstacks_compiler INTERFACE
  QT_NO_CAST_TO_ASCII QT_RESTRICTED_CAST_FROM_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS
  QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# Some thirty programs are linked, each from all rooms below it: gold takes a third of the time of the default linker.
include(CheckLinkerFlag)
check_linker_flag(CXX -fuse-ld=gold QUILLSTACKS_HAS_GOLD)
if(QUILLSTACKS_HAS_GOLD)
  target_link_options(quillstacks_compiler INTERFACE -fuse-ld=gold)
endif()

if(QUILLSTACKS_FUZZ)
  target_compile_options(quillstacks_compiler INTERFACE
    -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  target_link_options(quillstacks_compiler INTERFACE -fsanitize=address,undefined)
endif()

option(QUILLSTACKS_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
if(QUILLSTACKS_SANITIZE)
  # Qt 6.4 compares two empty lists with memcmp(nullptr, nullptr, 0), in a header of its own.
  target_compile_options(quillstacks_compiler INTERFACE
    -fsanitize=address,undefined -fno-sanitize=nonnull-attribute -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quillstacks_compiler INTERFACE -fsanitize=address,undefined)
endif()
