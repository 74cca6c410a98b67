// SPDX-License-Identifier: MIT
#include "app/Activation.h"
#include "app/ApplicationService.h"
#include "app/TavrelApp.h"
#include "desktop/DesktopSettings.h"
#include "desktop/DesktopWorkspace.h"
#include "desktop/FilePortal.h"
#include "desktop/QtText.h"
#include "desktop/SqliteKeyValueStore.h"
#include "platform/StandardStreams.h"
#include "ui/style/KorvanStyle.h"
#include "ui/style/Symbols.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <chrono>
#include <csignal>
#include <memory>

namespace {

using namespace Qt::StringLiterals;
using korvan::DesktopFilePanels;
using korvan::DesktopSettings;
using korvan::KorvanStyle;

// How long the first window waits for the desktop's settings, so that it does not appear light on a
// dark desktop. A running portal answers within half a millisecond, and so does a bus without one.
// The settings of a portal that is just being started are followed later.
constexpr std::chrono::milliseconds kSettingsPatience(25);

// The interface is German in every locale, so the toolkit's own texts must be German, too.
void speakGerman(QApplication& application, QTranslator& translator) {
    QLocale::setDefault(QLocale(QLocale::German));
    if (translator.load(u"qtbase_de"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&translator);
    application.setLayoutDirection(Qt::LeftToRight);
}

void follow(const DesktopSettings& settings, KorvanStyle& style) {
    style.setContrast(settings.wantsMoreContrast() ? KorvanStyle::Contrast::high
                                                   : KorvanStyle::Contrast::usual);
    style.setScheme(settings.colorScheme() == DesktopSettings::ColorScheme::dark
                        ? KorvanStyle::Scheme::dark
                        : KorvanStyle::Scheme::light);
    style.setMotion(settings.reducesMotion() ? KorvanStyle::Motion::reduced
                                             : KorvanStyle::Motion::full);
    if (const auto font = settings.font()) style.setFont(*font);
}

} // namespace

int main(int argc, char** argv) {
    korvan::secureStandardStreams();
    // The parent process may have ignored this signal, and a child inherits that. Korvan must learn
    // when its own children end.
    std::signal(SIGCHLD, SIG_DFL);
    // Before the toolkit takes the token out of the environment.
    const QString activationToken = korvan::activationTokenOfThisStart();
    auto portalTheme = std::make_unique<korvan::FilePortalTheme>();
    const auto filePanels = portalTheme->isChosen() ? DesktopFilePanels::Source::portal
                                                    : DesktopFilePanels::Source::theme;
    QApplication application(argc, argv);
    portalTheme.reset();
    QApplication::setApplicationName(u"korvan"_s);
    QGuiApplication::setDesktopFileName(u"" KORVAN_IDENTIFIER ""_s);
    const auto database = korvan::defaultDatabasePath();
    korvan::ApplicationService service(korvan::screenName() + u'|' +
                                       korvan::toQString(database.native()));
    if (service.handOver(activationToken)) return 0;
    korvan::DesktopSettings settings;
    auto* style = new korvan::KorvanStyle;
    QApplication::setStyle(style);
    QTranslator translator;
    speakGerman(application, translator);

    const std::string folder = korvan::fromQString(QApplication::applicationDirPath());
    korvan::TavrelApp app(database, korvan::helperProgramPath(folder), filePanels);
    QObject::connect(&service, &korvan::ApplicationService::windowRequested, &app,
                     &korvan::TavrelApp::openWindow);
    // The icon is drawn in four sizes. Queued, so that the first window does not wait for it.
    QObject::connect(
        &service, &korvan::ApplicationService::windowRequested, &application,
        [] {
            if (QApplication::windowIcon().isNull())
                QApplication::setWindowIcon(korvan::applicationIcon());
        },
        Qt::QueuedConnection);
    settings.waitForAnswers(kSettingsPatience);
    follow(settings, *style);
    QObject::connect(&settings, &korvan::DesktopSettings::changed, style,
                     [&settings, style] { follow(settings, *style); });
    service.requestFirstWindow();
    return QApplication::exec();
}
