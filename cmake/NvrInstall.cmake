# SPDX-FileCopyrightText: 2026 The nvrcore developers
# SPDX-License-Identifier: LicenseRef-Proprietary
#
# What `cmake --install` adds beyond the targets themselves: the CMake
# package, the shipped data directory and the SoX link of the programs.

set(NVR_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/nvrcore)
install(EXPORT nvrcoreTargets NAMESPACE Nvr:: DESTINATION ${NVR_INSTALL_CMAKEDIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/nvrcoreConfig.cmake.in
    ${CMAKE_CURRENT_BINARY_DIR}/nvrcoreConfig.cmake
    INSTALL_DESTINATION ${NVR_INSTALL_CMAKEDIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/nvrcoreConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/nvrcoreConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/nvrcoreConfigVersion.cmake
    DESTINATION ${NVR_INSTALL_CMAKEDIR})

if(NVR_BUILD_APPS)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/apps/nevra/nevradat DESTINATION ${NVR_INSTALL_APPDIR})
    if(NVR_SOX_EXECUTABLE)
        install(CODE "
            set(link \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${NVR_INSTALL_APPDIR}/bin/sox.exe\")
            message(STATUS \"Installing: \${link} -> ${NVR_SOX_EXECUTABLE}\")
            file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${NVR_INSTALL_APPDIR}/bin\")
            file(REMOVE \"\${link}\")
            file(CREATE_LINK \"${NVR_SOX_EXECUTABLE}\" \"\${link}\" SYMBOLIC)")
    endif()
endif()
