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
// The user is asked once before a file is replaced, about the name that is really written. Not
// every dialog asks when a name got its ending afterwards, so they are told not to, and the
// question is ours, in the program's own looks. A portal asks all the same: what it has asked is
// not asked again.
//
// A dialog opens in the folder that was used last since the program was started; at first in the
// home folder. Keys and backups are kept apart, each with a folder of their own: keys are looked
// for in ~/.ssh at first, and no backup should land there unnoticed.
class DesktopFilePanels final : public FilePanels {
public:
    // Whose dialogs Qt shows: those of the platform theme, or of the portal, by way of the bus.
    enum class Source { theme, portal };

    // Asks, in a dialog over `window`, whether the file of this name may be replaced; `title` is
    // that of the panel.
    using MayReplace =
        std::function<bool(QWidget* window, const QString& title, const QString& fileName)>;

    // The portal is on `bus`. Where none is there when it is needed, Qt's own dialog takes its
    // place.
    explicit DesktopFilePanels(MayReplace mayReplace, Source source = Source::theme,
                               QDBusConnection bus = QDBusConnection::sessionBus());

    [[nodiscard]] std::optional<std::filesystem::path>
    runSavePanel(const SavePanel& panel) override;
    [[nodiscard]] std::optional<std::filesystem::path>
    runOpenPanel(const OpenPanel& panel) override;

private:
    // The chosen path, empty when the user cancelled. `folder` is where the dialog opens and, after
    // a choice, where that lies.
    [[nodiscard]] static QString run(QFileDialog& dialog, QString& folder);
    [[nodiscard]] bool canUseDesktops() const;

    MayReplace m_mayReplace;
    Source m_source;
    QDBusConnection m_bus;
    QString m_typedFolder; // of files of a certain type; empty before the first choice
    QString m_anyFolder;   // of panels for any file, which are for keys
};

} // namespace korvan
