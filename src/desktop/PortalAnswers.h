// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace korvan {

// Hears which files the user has chosen in the panels that the desktop's portal shows for us, from
// the moment on that one of these is made.
//
// A portal always asks before it answers with a file that is there, whatever it is told. Nothing
// else says that a panel was the portal's: Qt and the desktop's plugin for it decide that.
class PortalAnswers final : public QObject {
    Q_OBJECT

public:
    explicit PortalAnswers(QDBusConnection bus);

    // Whether a portal has answered with just this file.
    [[nodiscard]] bool contain(const QString& path);

private Q_SLOTS:
    void take(uint response, const QVariantMap& results);

private:
    QStringList m_files;
};

} // namespace korvan
