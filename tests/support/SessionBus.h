// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QProcess>

namespace korvan {

// A message bus of its own.
class SessionBus final {
public:
    SessionBus() {
        m_daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        m_daemon.waitForReadyRead();
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
    ~SessionBus() { m_daemon.terminate(), m_daemon.waitForFinished(); }

    [[nodiscard]] QDBusConnection connection(const char* name) const {
        return QDBusConnection::connectToBus(m_address, name);
    }

private:
    QProcess m_daemon;
    QString m_address;
};

} // namespace korvan
