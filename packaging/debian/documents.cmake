# Run by cpack on the tree that becomes the package: adds copyright and changelogs, compresses what
# Debian wants compressed, and takes out of the program what only its makers need.
set(tree ${CPACK_TEMPORARY_INSTALL_DIRECTORY})
set(documents ${tree}/usr/share/doc/korvan)
set(overrides ${tree}/usr/share/lintian/overrides)

file(COPY ${CPACK_KORVAN_DEBIAN_FOLDER}/copyright DESTINATION ${documents})
file(COPY_FILE ${CPACK_KORVAN_CHANGELOG} ${documents}/changelog)
file(COPY_FILE ${CPACK_KORVAN_DEBIAN_FOLDER}/changelog ${documents}/changelog.Debian)
file(MAKE_DIRECTORY ${overrides})
file(COPY_FILE ${CPACK_KORVAN_DEBIAN_FOLDER}/lintian-overrides ${overrides}/korvan)

# Without name and time of the original (-n), so that the same sources give the same bytes.
file(GLOB_RECURSE manuals ${tree}/usr/share/man/*.1)
execute_process(COMMAND gzip -9 -n ${documents}/changelog ${documents}/changelog.Debian ${manuals}
  COMMAND_ERROR_IS_FATAL ANY)

execute_process(COMMAND strip --remove-section=.comment --remove-section=.note
  ${tree}/usr/bin/korvan COMMAND_ERROR_IS_FATAL ANY)

# Modes must not depend on the umask of whoever builds, nor times on when.
execute_process(COMMAND chmod -R u=rwX,go=rX ${tree} COMMAND_ERROR_IS_FATAL ANY)
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND find ${tree} -exec touch -h -d @$ENV{SOURCE_DATE_EPOCH} {} +
    COMMAND_ERROR_IS_FATAL ANY)
endif()
