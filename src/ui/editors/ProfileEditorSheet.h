// SPDX-License-Identifier: MIT
#pragma once

#include "ui/editors/EditorSheet.h"

#include <memory>

class QAbstractButton;

namespace korvan {

// Draws a ProfileEditorView, which it owns. The file panels must outlive it.
class ProfileEditorSheet final : public EditorSheet {
    Q_OBJECT

public:
    ProfileEditorSheet(std::unique_ptr<ProfileEditorView> state, FilePanels& filePanels,
                       QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;
    void refresh() override;

private:
    QLineEdit* addTextRow(const QString& label, std::string& value);
    void addPortRow();
    void addCategoryRow();
    void addPasswordRow();
    void addIdentityFileRow();
    void tintIdentityFile();

    std::unique_ptr<ProfileEditorView> m_state;
    FilePanels& m_filePanels;
    QLineEdit* m_password = nullptr;
    QAbstractButton* m_togglePassword = nullptr;
    QLineEdit* m_identityFile = nullptr;
    QAbstractButton* m_clearIdentityFile = nullptr;
    QLineEdit* m_extraArgs = nullptr;
};

} // namespace korvan
