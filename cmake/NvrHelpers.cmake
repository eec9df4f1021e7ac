# SPDX-FileCopyrightText: 2026 The nvrcore developers
# SPDX-License-Identifier: LicenseRef-Proprietary
#
# One place for the boilerplate of programs, tests and benchmarks.

find_program(NVR_SOX_EXECUTABLE sox)

# Programs that convert audio find SoX as <application directory>/bin/sox.exe;
# on Linux that file is a link to the system's sox.
function(nvr_link_sox target)
    if(NOT NVR_SOX_EXECUTABLE)
        message(WARNING "sox not found: ${target} gets no bin/sox.exe link (install the 'sox' package)")
        return()
    endif()
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -E make_directory $<TARGET_FILE_DIR:${target}>/bin
        COMMAND ${CMAKE_COMMAND} -E create_symlink ${NVR_SOX_EXECUTABLE} $<TARGET_FILE_DIR:${target}>/bin/sox.exe
        VERBATIM)
endfunction()

# nvr_add_app(name SOURCES ... [LIBRARIES ...])
function(nvr_add_app name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE Nvr::Core ${ARG_LIBRARIES})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
    nvr_link_sox(${name})
endfunction()

# nvr_add_autotest(name SOURCES ... [LIBRARIES ...] [TIMEOUT seconds])
# Each test runs in a directory of its own (its application directory), so
# CTest may run them in parallel without their data folders colliding.
function(nvr_add_autotest name)
    cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LIBRARIES" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 300)
    endif()
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE Nvr::Core Nvr::TestSupport Qt::Test ${ARG_LIBRARIES})
    set(dir ${CMAKE_BINARY_DIR}/tests/${name})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${dir})
    nvr_link_sox(${name})
    add_test(NAME ${name} COMMAND ${name} WORKING_DIRECTORY ${dir})
    nvr_test_environment(env)
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "${env}" TIMEOUT ${ARG_TIMEOUT})
endfunction()

# nvr_add_bench(name SOURCES ... [LIBRARIES ...]): built, never run by CTest.
function(nvr_add_bench name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE Nvr::Core ${ARG_LIBRARIES})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bench)
endfunction()

# The environment every test process runs in (sanitizer options included).
function(nvr_test_environment var)
    set(env "QT_QPA_PLATFORM=offscreen" "QT_LOGGING_RULES=qt.qpa.*=false")
    if(NVR_SANITIZE)
        list(APPEND env
            "ASAN_OPTIONS=detect_leaks=1:abort_on_error=0:detect_stack_use_after_return=0"
            "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0"
            "UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1")
    endif()
    set(${var} "${env}" PARENT_SCOPE)
endfunction()

# nvr_install_library(target EXPORT_NAME name INCLUDE_DIR dir)
# Installs a shared library into the package's export set as Nvr::<name>,
# with the headers listed in its sources (private *_p.h ones excepted) and
# its generated export header under include/<dir>, folders kept.
function(nvr_install_library target)
    cmake_parse_arguments(ARG "" "EXPORT_NAME;INCLUDE_DIR" "" ${ARGN})
    set(includes ${CMAKE_INSTALL_INCLUDEDIR}/${ARG_INCLUDE_DIR})
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${ARG_EXPORT_NAME} INSTALL_RPATH "$ORIGIN")
    target_include_directories(${target} INTERFACE $<INSTALL_INTERFACE:${includes}>)
    install(TARGETS ${target} EXPORT nvrcoreTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    get_target_property(sources ${target} SOURCES)
    foreach(source IN LISTS sources)
        if(source MATCHES "\\.h$" AND NOT source MATCHES "_p\\.h$" AND NOT IS_ABSOLUTE "${source}")
            get_filename_component(folder ${source} DIRECTORY)
            install(FILES ${source} DESTINATION ${includes}/${folder})
        endif()
    endforeach()
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${target}_export.h DESTINATION ${includes})
endfunction()

# nvr_install_app(target): installs a program into the application folder,
# beside the data directory and the SoX link, and links it from bin/. The
# program finds its libraries relative to itself, so the tree can move.
function(nvr_install_app target)
    file(RELATIVE_PATH libraries /${NVR_INSTALL_APPDIR} /${CMAKE_INSTALL_LIBDIR})
    file(RELATIVE_PATH program /${CMAKE_INSTALL_BINDIR} /${NVR_INSTALL_APPDIR}/${target})
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries}")
    install(TARGETS ${target} RUNTIME DESTINATION ${NVR_INSTALL_APPDIR})
    install(CODE "
        set(link \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/${target}\")
        message(STATUS \"Installing: \${link} -> ${program}\")
        file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
        file(REMOVE \"\${link}\")
        file(CREATE_LINK \"${program}\" \"\${link}\" SYMBOLIC)")
endfunction()
