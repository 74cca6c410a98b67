// SPDX-License-Identifier: MIT
//
// The least that a window of the toolkit can be, for korvan_start_benchmark.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(1460, 820);
    window.show();
    return QApplication::exec();
}
