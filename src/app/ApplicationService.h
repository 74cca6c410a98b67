// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusContext>
#include <QObject>
#include <QVariantMap>

namespace korvan {

// Makes Korvan a single process for each session bus: a second start asks the running process for
// another window. Desktops use the same interface, org.freedesktop.Application, to open windows
// without starting a process.
//
// No call on the bus waits longer than a second. Without a bus, or when the running process does
// not answer, each process opens its own windows.
class ApplicationService final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    // `session` names the screen and the stored data that this process works with. Processes with
    // different sessions open no windows for each other, even on the same bus.
    explicit ApplicationService(QString session);

    // Asks the running process for a window. `activationToken` lets that come to the front; it may
    // be empty. Returns whether the running process opens one; if not, this process must open its
    // own.
    [[nodiscard]] bool handOver(const QString& activationToken);

    // Emits windowRequested for the start of this process. Does not when the bus started this
    // process for a request, which then arrives by itself. Call this after handOver.
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
