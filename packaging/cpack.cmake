# Read by cpack before it begins: the day of the release is that of the package, unless another is asked for.
if("$ENV{SOURCE_DATE_EPOCH}" STREQUAL "")
    set(ENV{SOURCE_DATE_EPOCH} ${CPACK_ORV_RELEASE_SECONDS})
endif()
