# SPDX-License-Identifier: MIT
# The files of a package are as old as its release, so that the same sources make the same package.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  set(ENV{SOURCE_DATE_EPOCH} ${CPACK_QUILLBERRY_RELEASE_SECONDS})
endif()
