// SPDX-License-Identifier: MIT
#include "desktop/FilePortal.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QUrl>
#include <algorithm>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kThemeVariable = "QT_QPA_PLATFORMTHEME";
constexpr auto kPortalTheme = "xdgdesktopportal";

// These have a theme for Qt, which shows their own panels already.
bool isQtDesktop(const QString& name) { return name == u"KDE" || name == u"LXQt"; }

} // namespace

FilePortalTheme::FilePortalTheme() {
    const auto desktops =
        qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
    m_isOurs = !qEnvironmentVariableIsSet(kThemeVariable) && !desktops.isEmpty() &&
               std::ranges::none_of(desktops, isQtDesktop);
    if (m_isOurs) qputenv(kThemeVariable, kPortalTheme);
}

FilePortalTheme::~FilePortalTheme() {
    if (m_isOurs) qunsetenv(kThemeVariable);
}

bool FilePortalTheme::isChosen() const { return qgetenv(kThemeVariable) == kPortalTheme; }

bool hasFilePortal(const QDBusConnection& bus) {
    constexpr int patience = 5000; // milliseconds
    auto question = QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s,
                                                   u"/org/freedesktop/portal/desktop"_s,
                                                   u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << u"org.freedesktop.portal.FileChooser"_s << u"version"_s;
    return bus.call(question, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
}

// The answer is addressed to this process, so it needs no filter by service or path.
PortalAnswers::PortalAnswers(QDBusConnection bus) {
    if (!bus.isConnected()) return;
    bus.connect(QString(), QString(), u"org.freedesktop.portal.Request"_s, u"Response"_s, this,
                SLOT(take(uint, QVariantMap)));
}

bool PortalAnswers::contain(const QString& path) {
    // The panel may have received the answer first, and have ended before this object did.
    QCoreApplication::sendPostedEvents(this);
    return m_files.contains(path);
}

void PortalAnswers::take(uint response, const QVariantMap& results) {
    constexpr uint agreed = 0;
    if (response != agreed) return;
    for (const auto& uri : results.value(u"uris"_s).toStringList())
        m_files << QUrl(uri).toLocalFile();
}

} // namespace korvan
