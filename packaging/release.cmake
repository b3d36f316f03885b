# The last release, as packaging/changelog tells it: ORV_RELEASE_DAY (2026-11-23), and the same moment in the seconds that
# SOURCE_DATE_EPOCH counts, ORV_RELEASE_SECONDS. What is built and packed bears it instead of the day of its making, so that
# the same sources give the same bytes. Only where `date` can read it; elsewhere nothing is packed.
if(NOT UNIX OR APPLE)
    return()
endif()
set(changelog ${CMAKE_CURRENT_LIST_DIR}/changelog)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${changelog})
file(STRINGS ${changelog} lines)
list(GET lines 0 first)
if(NOT first MATCHES "^orv \\(${PROJECT_VERSION}\\) ")
    message(FATAL_ERROR "packaging/changelog begins with another version than ${PROJECT_VERSION}: ${first}")
endif()
list(FILTER lines INCLUDE REGEX "^ -- .*>  ")
list(GET lines 0 first)
string(REGEX REPLACE "^ -- .*>  " "" first ${first})
execute_process(COMMAND date -u -d ${first} "+%F %s" OUTPUT_VARIABLE first OUTPUT_STRIP_TRAILING_WHITESPACE
    COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCH "^([0-9-]+) ([0-9]+)$" first ${first})
set(ORV_RELEASE_DAY ${CMAKE_MATCH_1})
set(ORV_RELEASE_SECONDS ${CMAKE_MATCH_2})
