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
#include <QIcon>
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

// How long the first window waits for what the desktop wants it to look like. A portal that runs,
// or a bus that knows of none, has answered after half a millisecond, so that no window comes up
// light on a dark desktop. One that is only being started would hold up the window: it is followed
// later.
constexpr std::chrono::milliseconds kSettingsPatience(25);

// The interface is German, and so are the toolkit's own texts, whatever the desktop's language.
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
    // Whoever started us may ignore the end of his children; we want to know of ours.
    std::signal(SIGCHLD, SIG_DFL);
    // The toolkit takes it out of the environment.
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
    // Drawn in four sizes, which the first window need not wait for.
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
