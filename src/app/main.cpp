// SPDX-License-Identifier: MIT
#include "app/TavrelApp.h"
#include "platform/desktop/DesktopWorkspace.h"
#include "platform/desktop/QtText.h"
#include "platform/desktop/SqliteKeyValueStore.h"
#include "ui/style/KorvanStyle.h"
#include "ui/style/Symbols.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <csignal>

namespace {

// The interface is German, and so are the toolkit's own texts, whatever the desktop's language.
void speakGerman(QApplication& application, QTranslator& translator) {
    QLocale::setDefault(QLocale(QLocale::German));
    if (translator.load(u"qtbase_de"_qs, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&translator);
    application.setLayoutDirection(Qt::LeftToRight);
}

} // namespace

int main(int argc, char** argv) {
    // Whoever started us may ignore the end of his children; we want to know of ours.
    std::signal(SIGCHLD, SIG_DFL);
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"korvan"_qs);
    QGuiApplication::setDesktopFileName(u"" KORVAN_IDENTIFIER ""_qs);
    QApplication::setStyle(new korvan::KorvanStyle);
    QApplication::setWindowIcon(korvan::applicationIcon());
    QTranslator translator;
    speakGerman(application, translator);

    const std::string folder = korvan::fromQString(QApplication::applicationDirPath());
    korvan::TavrelApp app(korvan::defaultDatabasePath(), korvan::helperProgramPath(folder));
    app.openWindow();
    return QApplication::exec();
}
