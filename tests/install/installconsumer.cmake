# SPDX-FileCopyrightText: 2026 The nvrcore developers
# SPDX-License-Identifier: LicenseRef-Proprietary
#
# cmake -DBUILD_DIR=... -DPREFIX=... -DCONSUMER_SOURCE=... -DCONSUMER_BUILD=... [-DCXX_FLAGS=...]
#       [-DQT_PACKAGE=Qt6 -DQT_PACKAGE_DIR=...] -P installconsumer.cmake

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "failed (${result}): ${ARGN}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${PREFIX} ${CONSUMER_BUILD})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${PREFIX})

set(appdir ${PREFIX}/libexec/nvrcore)
foreach(path
        bin/nevra bin/nvrtool ${appdir}/nevra ${appdir}/nvrtool ${appdir}/bin/sox.exe
        ${appdir}/nevradat/audiosystems.csv ${appdir}/nevradat/serialdatadevices.csv
        share/applications/nevra.desktop share/icons/hicolor/scalable/apps/nevra.svg
        include/nvrcore/nvrcore_export.h include/nvrcore/classes/productdataheader.h
        include/kvcore/kvcore.h include/kvwidgets/kvwaitcursor.h lib/cmake/nvrcore/nvrcoreConfig.cmake)
    get_filename_component(path ${path} ABSOLUTE BASE_DIR ${PREFIX})
    if(NOT EXISTS ${path})
        message(FATAL_ERROR "not installed: ${path}")
    endif()
endforeach()
file(GLOB_RECURSE private ${PREFIX}/include/*_p.h)
if(private)
    message(FATAL_ERROR "private headers installed: ${private}")
endif()

# The consumer is told where the build's Qt is, as a project using a Qt outside the default paths would be.
set(qtLocation "")
if(QT_PACKAGE AND QT_PACKAGE_DIR)
    set(qtLocation "-D${QT_PACKAGE}_DIR=${QT_PACKAGE_DIR}")
endif()
run(${CMAKE_COMMAND} -S ${CONSUMER_SOURCE} -B ${CONSUMER_BUILD} -DCMAKE_PREFIX_PATH=${PREFIX}
    -DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}" ${qtLocation})
if(QT_PACKAGE AND NOT output MATCHES "nvrcore uses ${QT_PACKAGE}\n")
    message(FATAL_ERROR "the package does not say it was built with ${QT_PACKAGE}: ${output}")
endif()

run(${CMAKE_COMMAND} --build ${CONSUMER_BUILD})

# The consumer writes a header with the library; the installed tool reads it back.
run(${CONSUMER_BUILD}/consumer ${CONSUMER_BUILD}/header.bin)
if(NOT output STREQUAL "D:0.20.01 DCP Level\n")
    message(FATAL_ERROR "unexpected consumer output: ${output}")
endif()
run(${PREFIX}/bin/nvrtool header decode ${CONSUMER_BUILD}/header.bin)
if(NOT output MATCHES "^Product Model: CONSUMER\n.*\\(matches\\)\n$")
    message(FATAL_ERROR "unexpected decode output: ${output}")
endif()

# The installed tool finds the data directory installed beside it.
run(${PREFIX}/bin/nvrtool lib export audiosystems)
file(STRINGS ${appdir}/nevradat/audiosystems.csv shipped)
list(LENGTH shipped shippedLines)
string(REGEX MATCHALL "\n" exportedLines "${output}")
list(LENGTH exportedLines exportedLines)
if(NOT exportedLines EQUAL shippedLines OR NOT output MATCHES "\nId,Name,Company,Model,|^Id,Name,Company,Model,"
   OR NOT output MATCHES ",Generic,Audio Panel,")
    message(FATAL_ERROR "unexpected export of the ${shippedLines} shipped lines: ${output}")
endif()
