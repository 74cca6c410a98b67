// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FilePanels.h"

#include <QDBusConnection>
#include <QString>
#include <functional>

class QFileDialog;
class QWidget;

namespace korvan {

// The file dialogs of the desktop, or Qt's own where it has none, modal over the active window.
//
// The user is asked once before a file is replaced, and about the name that is really written. Not
// every dialog asks again when the ending is added to a name. So the dialogs are told not to ask,
// and Korvan asks, in its own style. A portal asks nevertheless; then Korvan does not.
//
// A dialog opens in the folder that was used last in this run. Keys and backups each have a folder
// of their own, so that no backup lands among the keys unnoticed. At first it is ~/.ssh for keys
// and the home folder for backups.
class DesktopFilePanels final : public FilePanels {
public:
    // Where Qt's dialogs come from: the platform theme, or the portal on the bus.
    enum class Source { theme, portal };

    // Asks the user, in a dialog over `window`, whether the file of this name may be replaced.
    // `title` is the panel's.
    using MayReplace =
        std::function<bool(QWidget* window, const QString& title, const QString& fileName)>;

    // The portal is looked for on `bus` each time. Where none is found, Qt's own dialog is shown.
    explicit DesktopFilePanels(MayReplace mayReplace, Source source = Source::theme,
                               QDBusConnection bus = QDBusConnection::sessionBus());

    [[nodiscard]] std::optional<std::filesystem::path>
    runSavePanel(const SavePanel& panel) override;
    [[nodiscard]] std::optional<std::filesystem::path>
    runOpenPanel(const OpenPanel& panel) override;

private:
    // The chosen path, empty when the user cancelled. After a choice, `folder` is the path's.
    [[nodiscard]] static QString run(QFileDialog& dialog, QString& folder);
    [[nodiscard]] bool canUseDesktops() const;

    MayReplace m_mayReplace;
    Source m_source;
    QDBusConnection m_bus;
    QString m_typedFolder; // of panels for a type of file (backups); empty before the first choice
    QString m_anyFolder;   // the same, of panels for any file (keys)
};

} // namespace korvan
