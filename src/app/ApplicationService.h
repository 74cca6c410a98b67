// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusContext>
#include <QObject>
#include <QVariantMap>

namespace korvan {

// Korvan on the session bus, where it is one program however often it is started: whoever starts
// it again gets a further window of the process that runs. Desktops, too, may ask for windows here
// instead of starting a program, by the interface that they have for this.
//
// No call waits longer than a moment. Without a bus, or when the running process does not answer,
// each process stands for itself.
class ApplicationService final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    // `session` says which screen and which stored data this process works with. One that works
    // with others is another program, though it may be on the same bus.
    explicit ApplicationService(QString session);

    // Asks the running process for a window, which may come to the front by `activationToken`.
    // Answers whether it is going to open one; if not, this process is to open its own.
    [[nodiscard]] bool handOver(const QString& activationToken);

    // Emits windowRequested for the start of this process, unless the bus started it to pass on a
    // request that then comes by itself. After handOver.
    void requestFirstWindow();

Q_SIGNALS:
    // `activationToken` is empty when none was passed on.
    void windowRequested(const QString& activationToken);

public Q_SLOTS:
    // The names are the interface's. NOLINTBEGIN(readability-identifier-naming)
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
    Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platformData);
    Q_SCRIPTABLE void ActivateAction(const QString& action, const QVariantList& parameter,
                                     const QVariantMap& platformData);
    // NOLINTEND(readability-identifier-naming)

private:
    void leaveBus();

    QString m_session;
    bool m_isOnBus = false;
    bool m_wasActivated = false;
};

} // namespace korvan
