# One function per kind of target, so that a folder's CMakeLists.txt is a list of files.

# All libraries that the pendant loads.
add_custom_target(plugins)

# A part of the plugin: laserweld_part(NAME SOURCES ... USES ...)
# Its folder becomes its include path, and USES says whose headers it may reach.
function(laserweld_part name)
    cmake_parse_arguments(PART "" "" "SOURCES;USES" ${ARGN})
    add_library(${name} STATIC ${PART_SOURCES})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name}
        PUBLIC Qt5::Widgets qelplugin_headers ${PART_USES}
        PRIVATE strict)
endfunction()

# A translation catalogue: compile_catalogue(VARIABLE FILE.ts) makes FILE.qm in the build folder and
# leaves its path in the variable, for a .qrc.in to name.
function(compile_catalogue variable source)
    cmake_path(GET source STEM name)
    set(compiled ${CMAKE_CURRENT_BINARY_DIR}/${name}.qm)
    add_custom_command(OUTPUT ${compiled}
        COMMAND Qt5::lrelease -silent ${CMAKE_CURRENT_SOURCE_DIR}/${source} -qm ${compiled}
        DEPENDS ${source}
        VERBATIM)
    set(${variable} ${compiled} PARENT_SCOPE)
endfunction()

# A part of the pendant: pendant_part(NAME SOURCES ... USES ...)
function(pendant_part name)
    cmake_parse_arguments(PART "" "" "SOURCES;USES" ${ARGN})
    add_library(${name} STATIC ${PART_SOURCES})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${PART_USES} PRIVATE strict)
endfunction()

# A plugin library in the folder from which the pendant loads: pendant_plugin(NAME SOURCES ... USES ...)
function(pendant_plugin name)
    cmake_parse_arguments(PLUGIN "" "" "SOURCES;USES" ${ARGN})
    add_library(${name} SHARED ${PLUGIN_SOURCES})
    target_link_libraries(${name} PRIVATE Qt5::Widgets ${PLUGIN_USES} qelplugin strict)
    set_target_properties(${name} PROPERTIES
        LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/plugins
        INSTALL_RPATH "$ORIGIN/..")
    add_dependencies(plugins ${name})
endfunction()

# A test program: laserweld_test(NAME [USES ...] [SOURCES ...] [TIMEOUT s]); its main source is NAME.cpp.
function(laserweld_test name)
    cmake_parse_arguments(TEST "" "TIMEOUT" "USES;SOURCES" ${ARGN})
    if(NOT TEST_TIMEOUT)
        set(TEST_TIMEOUT 120)
    endif()
    add_executable(${name} ${name}.cpp ${TEST_SOURCES})
    target_link_libraries(${name} PRIVATE ${TEST_USES} test_support strict)
    set_target_properties(${name} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    add_test(NAME ${name} COMMAND ${name})
    laserweld_test_environment(${name})
    # Those that may take long begin first, so that no processor is idle at the end.
    set_tests_properties(${name} PROPERTIES TIMEOUT ${TEST_TIMEOUT} COST ${TEST_TIMEOUT})
endfunction()

# No display, no network, no user settings: what a test sees is what it made.
function(laserweld_test_environment name)
    set_tests_properties(${name} PROPERTIES ENVIRONMENT
        "QT_QPA_PLATFORM=offscreen;QT_FONT_DPI=96;LC_ALL=C.UTF-8;ASAN_OPTIONS=detect_leaks=1:halt_on_error=1;LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0")
endfunction()

# A benchmark program: laserweld_bench(NAME USES ...); its main source is NAME.cpp.
function(laserweld_bench name)
    cmake_parse_arguments(BENCH "" "" "USES;SOURCES" ${ARGN})
    add_executable(${name} ${name}.cpp ${BENCH_SOURCES})
    target_link_libraries(${name} PRIVATE ${BENCH_USES} bench_support strict)
    set_target_properties(${name} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bench)
    set_property(GLOBAL APPEND PROPERTY LASERWELD_BENCHES ${name})
endfunction()
