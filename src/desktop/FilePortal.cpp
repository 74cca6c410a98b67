// SPDX-License-Identifier: MIT
#include "desktop/FilePortal.h"

#include <QDBusMessage>
#include <QString>
#include <QStringList>
#include <algorithm>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kThemeVariable = "QT_QPA_PLATFORMTHEME";
constexpr auto kPortalTheme = "xdgdesktopportal";

// These bring a theme for Qt, whose panels are their own already.
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

} // namespace korvan
