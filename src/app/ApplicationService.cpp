// SPDX-License-Identifier: MIT
#include "app/ApplicationService.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QTimer>
#include <utility>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

const QString kName = u"" KORVAN_IDENTIFIER ""_s;
const QString kPath = u'/' + QString(kName).replace(u'.', u'/');
const QString kInterface = u"org.freedesktop.Application"_s;
const QString kNewWindow = u"new-window"_s;

const QString kActivationToken = u"activation-token"_s;
const QString kStartupId = u"desktop-startup-id"_s;
const QString kSession = kName + u".session"_s;

// In milliseconds. A process that does not answer in this time is taken to hang.
constexpr int kPatience = 1000;

// In milliseconds. How long a process that the bus has started waits for the request.
constexpr int kRequestDelay = 200;

QDBusMessage busCall(const QString& member) {
    const auto bus = u"org.freedesktop.DBus"_s;
    return QDBusMessage::createMethodCall(bus, u"/org/freedesktop/DBus"_s, bus, member);
}

// Takes the program's name on the bus, and returns whether this process has it. registerService
// would wait without a limit of ours.
bool ownName(QDBusConnection& bus) {
    constexpr uint doNotQueue = 4;
    constexpr uint isOwner = 1;
    auto call = busCall(u"RequestName"_s);
    call.setArguments({kName, doNotQueue});
    return bus.call(call, QDBus::Block, kPatience).arguments().value(0).toUInt() == isOwner;
}

} // namespace

ApplicationService::ApplicationService(QString session) : m_session(std::move(session)) {}

bool ApplicationService::handOver(const QString& activationToken) {
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return false;
    // The object comes before the name: requests arrive as soon as the name is taken.
    m_isOnBus =
        bus.registerObject(kPath, this, QDBusConnection::ExportScriptableSlots) && ownName(bus);
    if (m_isOnBus) {
        // Without windows a process may still be busy with handing over the clipboard. The next
        // start must not ask it for a window.
        connect(qApp, &QCoreApplication::aboutToQuit, this, &ApplicationService::leaveBus);
        return false;
    }
    QVariantMap platformData{{kSession, m_session}};
    if (!activationToken.isEmpty()) {
        platformData[kActivationToken] = activationToken;
        platformData[kStartupId] = activationToken;
    }
    auto call = QDBusMessage::createMethodCall(kName, kPath, kInterface, u"Activate"_s);
    call.setArguments({platformData});
    call.setAutoStartService(false);
    return bus.call(call, QDBus::Block, kPatience).type() == QDBusMessage::ReplyMessage;
}

void ApplicationService::leaveBus() {
    auto call = busCall(u"ReleaseName"_s);
    call.setArguments({kName});
    QDBusConnection::sessionBus().asyncCall(call);
}

// The bus delivers the request that it started the program for before it answers any call that was
// made after the name was taken. So a request has arrived when GetId is answered.
//
// Some tools ask what the program can do before they send their request, which then comes later.
// For them a process that the bus has started waits a little longer. It knows of such a start from
// its environment. That may be wrong: a terminal that the bus started passes it to its children.
// They only wait a little in vain.
void ApplicationService::requestFirstWindow() {
    const auto request = [this] {
        if (!m_wasActivated) Q_EMIT windowRequested({});
    };
    if (!m_isOnBus) return request();
    // From the event loop: until it runs, requests are held back, but answers are not.
    const auto wait = qEnvironmentVariableIsSet("DBUS_STARTER_ADDRESS") ? kRequestDelay : 0;
    QTimer::singleShot(wait, this, [this, request] {
        const auto answer = QDBusConnection::sessionBus().asyncCall(busCall(u"GetId"_s), kPatience);
        auto* watcher = new QDBusPendingCallWatcher(answer, this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, request] {
            watcher->deleteLater();
            request();
        });
    });
}

void ApplicationService::Activate(const QVariantMap& platformData) {
    if (platformData.value(kSession, m_session).toString() != m_session)
        return sendErrorReply(QDBusError::Failed, u"Another screen or other data"_s);
    m_wasActivated = true;
    const QString token = platformData.value(kActivationToken).toString();
    Q_EMIT windowRequested(token.isEmpty() ? platformData.value(kStartupId).toString() : token);
}

// Korvan opens no documents, so this opens a window.
void ApplicationService::Open(const QStringList&, const QVariantMap& platformData) {
    Activate(platformData);
}

void ApplicationService::ActivateAction(const QString& action, const QVariantList&,
                                        const QVariantMap& platformData) {
    if (action == kNewWindow) return Activate(platformData);
    sendErrorReply(QDBusError::InvalidArgs, u"No such action: "_s + action);
}

} // namespace korvan
