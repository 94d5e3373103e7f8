# GCC's libbacktrace, which lies in GCC's own folders.
# Makes Libbacktrace::Libbacktrace. Its headers come last: clang must not find GCC's other headers there.
execute_process(COMMAND gcc -print-file-name=include OUTPUT_VARIABLE gcc_includes OUTPUT_STRIP_TRAILING_WHITESPACE)
cmake_path(GET gcc_includes PARENT_PATH gcc_folder)
find_path(Libbacktrace_INCLUDES backtrace.h HINTS ${gcc_includes})
find_file(Libbacktrace_LIBRARY libbacktrace.a HINTS ${gcc_folder})

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Libbacktrace DEFAULT_MSG Libbacktrace_LIBRARY Libbacktrace_INCLUDES)
if(Libbacktrace_FOUND AND NOT TARGET Libbacktrace::Libbacktrace)
    add_library(Libbacktrace::Libbacktrace STATIC IMPORTED)
    set_target_properties(Libbacktrace::Libbacktrace PROPERTIES
        IMPORTED_LOCATION ${Libbacktrace_LIBRARY}
        INTERFACE_COMPILE_OPTIONS "-idirafter;${Libbacktrace_INCLUDES}"
        INTERFACE_LINK_LIBRARIES "${CMAKE_DL_LIBS}")
endif()
