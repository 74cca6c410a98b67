// SPDX-License-Identifier: MIT
#include "app/Activation.h"

#include <QGuiApplication>
#include <QWidget>

namespace korvan {

namespace {

constexpr auto kWaylandToken = "XDG_ACTIVATION_TOKEN";
constexpr auto kX11Token = "DESKTOP_STARTUP_ID";

bool isOnWayland() { return QGuiApplication::platformName().startsWith(u"wayland"); }

} // namespace

QString activationTokenOfThisStart() {
    const auto token = qEnvironmentVariable(kWaylandToken);
    return token.isEmpty() ? qEnvironmentVariable(kX11Token) : token;
}

QString screenName() {
    return QGuiApplication::platformName() +
           qEnvironmentVariable(isOnWayland() ? "WAYLAND_DISPLAY" : "DISPLAY");
}

void showInFront(QWidget& window, const QString& token) {
    // The toolkit reads the token from the environment.
    if (!token.isEmpty() && isOnWayland()) qputenv(kWaylandToken, token.toUtf8());
    window.show();
    if (!token.isEmpty()) window.activateWindow();
}

} // namespace korvan
