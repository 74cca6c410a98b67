// SPDX-License-Identifier: MIT
#include "app/ApplicationService.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QTimer>
#include <utility>

namespace korvan {

namespace {

const QString kName = QStringLiteral(KORVAN_IDENTIFIER);
const QString kPath = u'/' + QString(kName).replace(u'.', u'/');
const QString kInterface = QStringLiteral("org.freedesktop.Application");
const QString kNewWindow = QStringLiteral("new-window");

const QString kActivationToken = QStringLiteral("activation-token");
const QString kStartupId = QStringLiteral("desktop-startup-id");
const QString kSession = kName + QStringLiteral(".session");

// In milliseconds. A process that answers later hangs, or its machine does.
constexpr int kPatience = 1000;

// How much later than the start a request may come that the start was for.
constexpr int kRequestDelay = 200;

QDBusMessage busCall(const QString& member) {
    const auto bus = QStringLiteral("org.freedesktop.DBus");
    return QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus,
                                          member);
}

// Whether this process has the program's name from now on. Not by registerService, whose waiting
// has no limit of ours.
bool ownName(QDBusConnection& bus) {
    constexpr uint doNotQueue = 4;
    constexpr uint isOwner = 1;
    auto call = busCall(QStringLiteral("RequestName"));
    call.setArguments({kName, doNotQueue});
    return bus.call(call, QDBus::Block, kPatience).arguments().value(0).toUInt() == isOwner;
}

} // namespace

ApplicationService::ApplicationService(QString session) : m_session(std::move(session)) {}

bool ApplicationService::handOver(const QString& activationToken) {
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return false;
    // The object before the name: a request comes as soon as there is a name to send it to.
    m_isOnBus =
        bus.registerObject(kPath, this, QDBusConnection::ExportScriptableSlots) && ownName(bus);
    if (m_isOnBus) {
        // A process that has no windows left may still be busy, handing the clipboard on.
        connect(qApp, &QCoreApplication::aboutToQuit, this, &ApplicationService::leaveBus);
        return false;
    }
    QVariantMap platformData{{kSession, m_session}};
    if (!activationToken.isEmpty()) {
        platformData[kActivationToken] = activationToken;
        platformData[kStartupId] = activationToken;
    }
    auto call =
        QDBusMessage::createMethodCall(kName, kPath, kInterface, QStringLiteral("Activate"));
    call.setArguments({platformData});
    call.setAutoStartService(false);
    return bus.call(call, QDBus::Block, kPatience).type() == QDBusMessage::ReplyMessage;
}

void ApplicationService::leaveBus() {
    auto call = busCall(QStringLiteral("ReleaseName"));
    call.setArguments({kName});
    QDBusConnection::sessionBus().asyncCall(call);
}

// The bus passes the request that it started the program for on before it answers anything that is
// asked after the name was ours. Some tools, though, ask what the program can do before they
// request it. The environment tells of a start by the bus, but cannot be relied on: a terminal that
// the bus started hands it on to whatever is started there. So it makes the window wait a little,
// no more.
void ApplicationService::requestFirstWindow() {
    const auto request = [this] {
        if (!m_wasActivated) Q_EMIT windowRequested({});
    };
    if (!m_isOnBus) return request();
    // From the event loop: before it runs, requests are held back and answers are not.
    const auto wait = qEnvironmentVariableIsSet("DBUS_STARTER_ADDRESS") ? kRequestDelay : 0;
    QTimer::singleShot(wait, this, [this, request] {
        const auto answer =
            QDBusConnection::sessionBus().asyncCall(busCall(QStringLiteral("GetId")), kPatience);
        auto* watcher = new QDBusPendingCallWatcher(answer, this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, request] {
            watcher->deleteLater();
            request();
        });
    });
}

void ApplicationService::Activate(const QVariantMap& platformData) {
    if (platformData.value(kSession, m_session).toString() != m_session) {
        return sendErrorReply(QDBusError::Failed, QStringLiteral("Another screen or other data"));
    }
    m_wasActivated = true;
    const QString token = platformData.value(kActivationToken).toString();
    Q_EMIT windowRequested(token.isEmpty() ? platformData.value(kStartupId).toString() : token);
}

// Korvan has no documents that could be opened: a window it is.
void ApplicationService::Open(const QStringList&, const QVariantMap& platformData) {
    Activate(platformData);
}

void ApplicationService::ActivateAction(const QString& action, const QVariantList&,
                                        const QVariantMap& platformData) {
    if (action == kNewWindow) return Activate(platformData);
    sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("No such action: ") + action);
}

} // namespace korvan
