// SPDX-License-Identifier: MIT
#include "desktop/DesktopFilePanels.h"

#include "desktop/FilePortal.h"
#include "desktop/QtText.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QIdentityProxyModel>
#include <QLocale>
#include <QSplitter>
#include <QStyle>
#include <QTreeView>

namespace korvan {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kOwnPanelSize(820, 520);
constexpr int kPlacesWidth = 160;
constexpr int kPlacesSpacing = 8; // between the list of places and that of files

// "JSON-Dateien (*.json)"
QString nameFilter(const std::vector<std::string>& fileTypes) {
    QStringList names;
    QStringList patterns;
    for (const std::string& type : fileTypes) {
        names << toQString(type).toUpper();
        patterns << u"*."_s + toQString(type);
    }
    return u"%1-Dateien (%2)"_s.arg(names.join(u"/"_s), patterns.join(u' '));
}

// The files of the toolkit's own panel, with German sizes and dates. The panel alone writes them in
// the desktop's language, among German texts.
class GermanFiles final : public QIdentityProxyModel {
public:
    using QIdentityProxyModel::QIdentityProxyModel;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        const auto* files = qobject_cast<const QFileSystemModel*>(sourceModel());
        const QModelIndex file = mapToSource(index);
        if (role == Qt::DisplayRole && index.column() == 1 && files && !files->isDir(file))
            return QLocale().formattedDataSize(files->size(file));
        if (role == Qt::DisplayRole && index.column() == 3 && files)
            return QLocale().toString(files->lastModified(file), QLocale::ShortFormat);
        return QIdentityProxyModel::data(index, role);
    }
};

// The style's symbols instead of those that a desktop has for each type of file.
class StyleIcons final : public QFileIconProvider {
public:
    using QFileIconProvider::icon;

    [[nodiscard]] QIcon icon(IconType type) const override {
        switch (type) {
        case Computer:
        case Desktop: return standard(QStyle::SP_ComputerIcon);
        case Drive: return standard(QStyle::SP_DriveHDIcon);
        case File: return standard(QStyle::SP_FileIcon);
        default: return standard(QStyle::SP_DirIcon);
        }
    }
    [[nodiscard]] QIcon icon(const QFileInfo& info) const override {
        return icon(info.isDir() ? Folder : File);
    }

private:
    static QIcon standard(QStyle::StandardPixmap name) {
        return QApplication::style()->standardIcon(name);
    }
};

// Gives the toolkit's own panel, which is shown where the desktop has none, our symbols and German
// texts, and enough room to its columns and its list of places. Leaves any other panel alone.
void completeOwnPanel(QFileDialog& dialog) {
    const auto* list = dialog.findChild<QTreeView*>();
    if (!list) return;
    dialog.resize(kOwnPanelSize);
    dialog.setSizeGripEnabled(false);
    static StyleIcons icons; // outlives every panel
    dialog.setIconProvider(&icons);
    if (auto* splitter = dialog.findChild<QSplitter*>()) {
        splitter->setHandleWidth(kPlacesSpacing);
        splitter->setSizes({kPlacesWidth, kOwnPanelSize.width() - kPlacesWidth});
    }
    dialog.setProxyModel(new GermanFiles(&dialog));
    QHeaderView* columns = list->header();
    columns->setSectionResizeMode(QHeaderView::ResizeToContents);
    columns->setSectionResizeMode(0, QHeaderView::Stretch);
}

// The user's last folder if it still exists, else `atFirst` if that exists, else the home folder.
// With a folder that does not exist, the dialog would open where the program was started.
QString startFolder(const QString& last, const QString& atFirst) {
    for (const QString& folder : {last, atFirst})
        if (!folder.isEmpty() && QFileInfo(folder).isDir()) return folder;
    return QDir::homePath();
}

// `path` with the ending `type`. Another ending is kept: it may be part of the name, as in
// "Korvan 1.10".
QString withType(const QString& path, const QString& type) {
    const QString ending = u'.' + type;
    return path.endsWith(ending, Qt::CaseInsensitive) ? path : path + ending;
}

} // namespace

DesktopFilePanels::DesktopFilePanels(MayReplace mayReplace, Source source, QDBusConnection bus)
    : m_mayReplace(std::move(mayReplace)), m_source(source), m_bus(std::move(bus)) {}

bool DesktopFilePanels::canUseDesktops() const {
    return m_source == Source::theme || hasFilePortal(m_bus);
}

QString DesktopFilePanels::run(QFileDialog& dialog, QString& folder) {
    completeOwnPanel(dialog);
    if (dialog.exec() != QDialog::Accepted) return {};
    const QStringList files = dialog.selectedFiles();
    if (files.isEmpty()) return {};
    folder = QFileInfo(files.first()).path();
    return files.first();
}

std::optional<std::filesystem::path> DesktopFilePanels::runSavePanel(const SavePanel& panel) {
    // Looked up before the loop: between two dialogs no window is active.
    QWidget* const window = QApplication::activeWindow();
    const QString title = toQString(panel.title);
    QString name = toQString(panel.proposedName);
    while (true) {
        PortalAnswers portal(m_bus);
        QFileDialog dialog(window, title);
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setFileMode(QFileDialog::AnyFile);
        if (!canUseDesktops()) dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
        dialog.setSupportedSchemes({u"file"_s});
        dialog.setNameFilter(nameFilter({panel.fileType}));
        dialog.setDirectory(startFolder(m_typedFolder, {}));
        dialog.selectFile(name);
        QString path = run(dialog, m_typedFolder);
        if (path.isEmpty()) return std::nullopt;
        path = withType(path, toQString(panel.fileType));
        name = QFileInfo(path).fileName(); // proposed again when the user does not want to replace
        if (!QFileInfo::exists(path) || portal.contain(path) || m_mayReplace(window, title, name))
            return fromQString(path);
    }
}

std::optional<std::filesystem::path> DesktopFilePanels::runOpenPanel(const OpenPanel& panel) {
    const bool isTyped = !panel.fileTypes.empty();
    QString& folder = isTyped ? m_typedFolder : m_anyFolder;
    QFileDialog dialog(QApplication::activeWindow(), toQString(panel.title));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (!canUseDesktops()) dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setSupportedSchemes({u"file"_s});
    if (isTyped) {
        dialog.setNameFilter(nameFilter(panel.fileTypes));
        dialog.setDirectory(startFolder(folder, {}));
    } else {
        dialog.setFilter(dialog.filter() | QDir::Hidden);
        dialog.setDirectory(startFolder(folder, QDir::home().filePath(u".ssh"_s)));
    }
    const QString path = run(dialog, folder);
    if (path.isEmpty()) return std::nullopt;
    return fromQString(path);
}

} // namespace korvan
