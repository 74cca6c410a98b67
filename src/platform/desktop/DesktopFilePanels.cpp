// SPDX-License-Identifier: MIT
#include "platform/desktop/DesktopFilePanels.h"

#include "platform/desktop/QtText.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QIdentityProxyModel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeView>

namespace korvan {

namespace {

constexpr QSize kOwnPanelSize(820, 520);

// "JSON-Dateien (*.json)"
QString nameFilter(const std::vector<std::string>& fileTypes) {
    QStringList names;
    QStringList patterns;
    for (const std::string& type : fileTypes) {
        names << toQString(type).toUpper();
        patterns << QStringLiteral("*.") + toQString(type);
    }
    return QStringLiteral("%1-Dateien (%2)")
        .arg(names.join(QStringLiteral("/")), patterns.join(QLatin1Char(' ')));
}

// The files of the toolkit's own panel, which writes sizes and dates as the desktop's settings have
// them, in the middle of German texts.
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

// The toolkit's own panel, which is there where the desktop brings none, gives each column a width
// that is too small for what it shows.
void completeOwnPanel(QFileDialog& dialog) {
    const auto* list = dialog.findChild<QTreeView*>();
    if (!list) return;
    dialog.resize(kOwnPanelSize);
    dialog.setProxyModel(new GermanFiles(&dialog));
    QHeaderView* columns = list->header();
    columns->setSectionResizeMode(QHeaderView::ResizeToContents);
    columns->setSectionResizeMode(0, QHeaderView::Stretch);
}

// The chosen path, empty when the user cancelled.
QString run(QFileDialog& dialog) {
    completeOwnPanel(dialog);
    if (dialog.exec() != QDialog::Accepted) return {};
    const QStringList files = dialog.selectedFiles();
    return files.isEmpty() ? QString() : files.first();
}

bool mayReplace(const QString& path, const QString& title, QWidget* window) {
    QMessageBox question(window);
    question.setWindowTitle(title);
    question.setText(QStringLiteral("„%1“ ist bereits vorhanden.").arg(QFileInfo(path).fileName()));
    question.setInformativeText(QStringLiteral("Soll die Datei ersetzt werden?"));
    const auto* replace =
        question.addButton(QStringLiteral("Ersetzen"), QMessageBox::DestructiveRole);
    auto* cancel = question.addButton(QStringLiteral("Abbrechen"), QMessageBox::RejectRole);
    question.setDefaultButton(cancel);
    question.setEscapeButton(cancel);
    question.exec();
    return question.clickedButton() == replace;
}

} // namespace

std::optional<std::string> DesktopFilePanels::runSavePanel(const SavePanel& panel) {
    // Asked once: between the dialogs no window is active.
    QWidget* const window = QApplication::activeWindow();
    const QString title = toQString(panel.title);
    const QString fileType = toQString(panel.fileType);
    QString proposed = toQString(panel.proposedName);
    while (true) {
        QFileDialog dialog(window, title);
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setFileMode(QFileDialog::AnyFile);
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
        dialog.setSupportedSchemes({QStringLiteral("file")});
        dialog.setNameFilter(nameFilter({panel.fileType}));
        dialog.setDefaultSuffix(fileType);
        dialog.selectFile(proposed);
        QString path = run(dialog);
        if (path.isEmpty()) return std::nullopt;
        if (QFileInfo(path).suffix().isEmpty()) path += QLatin1Char('.') + fileType;
        if (!QFileInfo::exists(path) || mayReplace(path, title, window)) return fromQString(path);
        proposed = path; // he may want another name beside it
    }
}

std::optional<std::string> DesktopFilePanels::runOpenPanel(const OpenPanel& panel) {
    QFileDialog dialog(QApplication::activeWindow(), toQString(panel.title));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setSupportedSchemes({QStringLiteral("file")});
    if (panel.fileTypes.empty()) {
        dialog.setFilter(dialog.filter() | QDir::Hidden); // keys lie in ~/.ssh
    } else {
        dialog.setNameFilter(nameFilter(panel.fileTypes));
    }
    const QString path = run(dialog);
    if (path.isEmpty()) return std::nullopt;
    return fromQString(path);
}

} // namespace korvan
