# SPDX-License-Identifier: MIT
# What Debian asks of a package beyond what is installed elsewhere.
set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_INSTALL_PREFIX}/share)
set(documents ${share}/doc/${CPACK_PACKAGE_NAME})
file(COPY ${CPACK_QUILLBERRY_DOCUMENTS} DESTINATION ${documents}
     FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
file(GLOB toCompress ${share}/man/man1/*.1 ${documents}/changelog)
execute_process(COMMAND gzip -9n ${toCompress} COMMAND_ERROR_IS_FATAL ANY)
