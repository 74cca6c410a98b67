// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace korvan {

// Makes Qt show the file panels of the desktop's portal. GNOME and its relatives show their panels
// to every program that way. Qt has a theme for it, but uses that by itself only in sandboxes.
//
// Must exist while the QApplication is made, which then loads the theme if it is installed. Does
// nothing where the user has chosen a theme, or where the desktop has one of its own for Qt.
class FilePortalTheme final {
public:
    FilePortalTheme();
    FilePortalTheme(const FilePortalTheme&) = delete;
    FilePortalTheme& operator=(const FilePortalTheme&) = delete;
    // Restores the environment, so that no other program inherits the theme.
    ~FilePortalTheme();

    // Whether the portal is chosen, here or by the user.
    [[nodiscard]] bool isChosen() const;

private:
    bool m_isOurs = false;
};

// Whether a portal answers that shows file panels. Without one, Qt's dialog would end at once, as
// if the user had cancelled it. Waits some seconds at most for a portal that is being started.
[[nodiscard]] bool hasFilePortal(const QDBusConnection& bus);

// Collects the files that the user chooses in the portal's panels, from its construction on.
//
// A portal always asks before it answers with a file that is there, whatever it is told. Nothing
// else tells that a panel was the portal's: Qt and the desktop's plugin for it decide that.
class PortalAnswers final : public QObject {
    Q_OBJECT

public:
    // Without a bus, no file is ever collected.
    explicit PortalAnswers(QDBusConnection bus);

    // Whether the portal has answered with this file.
    [[nodiscard]] bool contain(const QString& path);

private Q_SLOTS:
    void take(uint response, const QVariantMap& results);

private:
    QStringList m_files;
};

} // namespace korvan
