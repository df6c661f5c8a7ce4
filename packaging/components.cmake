# SPDX-FileCopyrightText: 2026 The Tovarin developers
# SPDX-License-Identifier: MIT

# Read by CPack once for each kind of package.

if(CPACK_GENERATOR STREQUAL DEB)
    set(CPACK_COMPONENTS_ALL system debian)
    set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
else()
    set(CPACK_COMPONENTS_ALL portable)
    set(CPACK_PACKAGING_INSTALL_PREFIX /)
    set(CPACK_PACKAGE_FILE_NAME
        ${CPACK_PACKAGE_NAME}-${CPACK_PACKAGE_VERSION}-linux-${CMAKE_HOST_SYSTEM_PROCESSOR})
endif()
