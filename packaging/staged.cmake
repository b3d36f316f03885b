# Played by cpack on the files that it packs: each bears the one date, not that of its making, and whoever can read a folder
# of the program's can go into it, whatever the umask.
execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -type d -exec chmod 755 {} + COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -exec touch -h -d @$ENV{SOURCE_DATE_EPOCH} {} +
    COMMAND_ERROR_IS_FATAL ANY)
