# The Debian package, built by `cpack` from what is installed. script/package calls it with Debian's
# compiler flags and looks at the outcome.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME korvan)
set(CPACK_PACKAGE_VENDOR Lumera)
set(CPACK_PACKAGE_CONTACT "The Korvan authors <authors@korvan.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "SSH connection profiles beside a database of commands")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Korvan is for people who open SSH sessions to many machines. It keeps
connection profiles in categories, and a double click opens a session in
a window of whichever terminal the desktop has.
.
Beside them is a searchable database of commands, which are filled in
from the selected profile and copied with a click. All of it can be saved
to one file. The interface is German.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# The libraries are found by dpkg-shlibdeps. Here stands what no library tells: what the scripts run
# that Korvan opens, a terminal to open them in, and what the toolkit loads only when it needs it.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
  "zsh, openssh-client, xterm | x-terminal-emulator, qt6-wayland, qt6-translations-l10n")

# Debian's own documents, which no other system wants.
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/documents.cmake)
set(CPACK_KORVAN_DEBIAN_FOLDER ${CMAKE_CURRENT_LIST_DIR})
set(CPACK_KORVAN_CHANGELOG ${PROJECT_SOURCE_DIR}/CHANGELOG.md)

include(CPack)
