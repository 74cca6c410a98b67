// SPDX-License-Identifier: MIT

// Opens a script as Korvan does, and stays as Korvan would: korvan_open_in_terminal HELPER SCRIPT.
// Ends with status 1 when no terminal takes the script.
#include "desktop/DesktopWorkspace.h"

#include <QCoreApplication>
#include <QTimer>

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    if (argc != 3) return 2;
    korvan::DesktopWorkspace workspace(argv[1]);
    // From the event loop, as from a click.
    QTimer::singleShot(0, &application, [&] {
        const auto refuse = [] { QCoreApplication::exit(1); };
        if (!workspace.openFile(argv[2], "Terminal", refuse)) refuse();
    });
    return QCoreApplication::exec();
}
