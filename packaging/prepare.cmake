# Run by CPack before it packs. Drops what the compiler wrote about itself, and gives every file the
# time of the release, so that two builds of the same sources give the same bytes.
set(staged "${CPACK_TEMPORARY_INSTALL_DIRECTORY}")
execute_process(COMMAND find "${staged}" -path "*/bin/*" -type f -exec
                        strip --remove-section=.comment {} +
                COMMAND_ERROR_IS_FATAL ANY)
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND find "${staged}" -exec
                          touch --no-dereference --date "@$ENV{SOURCE_DATE_EPOCH}" {} +
                  COMMAND_ERROR_IS_FATAL ANY)
endif()
