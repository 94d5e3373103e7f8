# What the folders' CMakeLists.txt have in common.

# Lets those who link the target include the headers of a folder, or one header, by its path from the top; for nobody
# else there is such a file, so an include against the layers doesn't compile. File names in rows and traces stay those
# of the sources.
function(zelkor_headers target scope path)
    set(root ${CMAKE_BINARY_DIR}/include/${target})
    cmake_path(GET path PARENT_PATH parent)
    file(MAKE_DIRECTORY ${root}/${parent})
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${path} ${root}/${path} SYMBOLIC)
    target_include_directories(${target} ${scope} ${root})
    target_compile_options(${target} ${scope}
        "-ffile-prefix-map=${root}/=" "-ffile-prefix-map=include/${target}/=") # the second one as that of the top
endfunction()

# A static library whose sources, and whose headers for others, lie in the folder of the call.
function(zelkor_library name)
    add_library(${name} STATIC ${ARGN})
    add_library(Zelkor::${name} ALIAS ${name})
    cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE folder)
    zelkor_headers(${name} PUBLIC ${folder})
    target_link_libraries(${name} PRIVATE Zelkor::Warnings)
endfunction()

# A program that is shipped, on Win32 with the resources by which Windows knows it.
# zelkor_program(name DESCRIPTION text SOURCES source ... LINK target ...)
function(zelkor_program name)
    cmake_parse_arguments(PARSE_ARGV 1 program "" "DESCRIPTION" "SOURCES;LINK")
    add_executable(${name} ${program_SOURCES})
    target_link_libraries(${name} PRIVATE ${program_LINK} Zelkor::Warnings)
    if(WIN32)
        set(win32 ${PROJECT_SOURCE_DIR}/Packaging/Win32)
        configure_file(${win32}/Program.rc.in ${name}.rc @ONLY)
        set_property(SOURCE ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc PROPERTY OBJECT_DEPENDS ${win32}/Program.manifest)
        add_library(${name}Resources OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc)
        # none of the folder's options: they are for C++
        set_target_properties(${name}Resources PROPERTIES COMPILE_OPTIONS "" INCLUDE_DIRECTORIES ${win32})
        target_link_libraries(${name} PRIVATE ${name}Resources)
    endif()
endfunction()

# A program of GoogleTest: each of its tests is one of CTest's, with the properties given.
# zelkor_test(name SOURCES source ... LINK target ... [PROPERTIES property value ...])
function(zelkor_test name)
    cmake_parse_arguments(PARSE_ARGV 1 test "" "" "SOURCES;LINK;PROPERTIES")
    add_executable(${name} ${test_SOURCES})
    target_link_libraries(${name} PRIVATE ${test_LINK} Zelkor::TestSupport Zelkor::Warnings)
    gtest_discover_tests(${name} # MinGW's programs can't run when built, and may be slow to start on a loaded machine
        DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 PROPERTIES ${test_PROPERTIES})
endfunction()
