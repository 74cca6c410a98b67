// SPDX-License-Identifier: MIT
//
// A window with the widgets of Korvan's main window and nothing behind them, for
// korvan_start_benchmark: what a program of this kind costs before it does anything. It links what
// Korvan links and opens a database.
#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QSplitter>
#include <QStandardItemModel>
#include <QSvgRenderer>
#include <QTableView>
#include <QVBoxLayout>
#include <simdjson.h>
#include <sqlite3.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace {

QLayout* makeButtons() {
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (const char* label : {"Verbinden", "Edit", "Löschen", "Neu", "SSH-Befehl kopieren",
                              "Neu laden", "Export", "Import", "Über", "Befehle aus"})
        row->addWidget(new QPushButton(QString::fromUtf8(label)));
    return row;
}

QWidget* makePanel() {
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->addWidget(new QLineEdit);
    column->addWidget(new QListWidget);
    return panel;
}

// Called once, so that none of the libraries is left out as never used.
bool useLibraries() {
    sqlite3* connection = nullptr;
    const bool isOpen = sqlite3_open(":memory:", &connection) == SQLITE_OK;
    sqlite3_close(connection);
    simdjson::dom::parser parser;
    const bool isParsed = parser.parse(std::string_view("[]")).error() == simdjson::SUCCESS;
    icu::UnicodeString text("A");
    const QSvgRenderer renderer;
    return isOpen && isParsed && !text.toLower(icu::Locale::getRoot()).isEmpty() &&
           !renderer.isValid();
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (!useLibraries()) return EXIT_FAILURE;
    QMainWindow window;
    window.menuBar()->addMenu(QStringLiteral("Datei"))->addAction(QStringLiteral("Beenden"));
    QStandardItemModel profiles(0, 6);
    auto* table = new QTableView;
    table->setModel(&profiles);
    auto* split = new QSplitter;
    split->addWidget(new QListWidget);
    split->addWidget(table);
    split->addWidget(makePanel());
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->addLayout(makeButtons());
    column->addWidget(split, 1);
    window.setCentralWidget(content);
    window.resize(1460, 820);
    window.show();
    return QApplication::exec();
}
