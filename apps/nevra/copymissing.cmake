# SPDX-FileCopyrightText: 2026 The nvrcore developers
# SPDX-License-Identifier: LicenseRef-Proprietary
#
# cmake -DSOURCE=<folder> -DDESTINATION=<folder> -P copymissing.cmake
# Copies the files of SOURCE that DESTINATION lacks; files already there are
# the user's and stay as they are.
file(MAKE_DIRECTORY "${DESTINATION}")
file(GLOB names RELATIVE "${SOURCE}" "${SOURCE}/*")
foreach(name IN LISTS names)
    if(NOT EXISTS "${DESTINATION}/${name}")
        file(COPY "${SOURCE}/${name}" DESTINATION "${DESTINATION}")
    endif()
endforeach()
