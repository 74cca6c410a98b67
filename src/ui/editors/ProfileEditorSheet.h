// SPDX-License-Identifier: MIT
#pragma once

#include "state/ProfileEditorView.h"
#include "ui/editors/EditorSheet.h"

class QAbstractButton;
class QComboBox;
class QLayout;

namespace korvan {

// Draws a ProfileEditorView, which it owns. The file panels must outlive it.
class ProfileEditorSheet final : public EditorSheet {
    Q_OBJECT

public:
    ProfileEditorSheet(ProfileEditorView state, FilePanels& filePanels, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;
    void refresh() override;

private:
    [[nodiscard]] std::string_view editorTitle() const override { return m_state.editorTitle(); }
    [[nodiscard]] Validation& validation() override { return m_state; }
    void commit() override { m_state.commit(); }
    void cancel() override { m_state.cancel(); }

    QLineEdit* addTextRow(const QString& label, std::string& value);
    void addPortRow();
    void addCategoryRow();
    void addPasswordRow();
    void addIdentityFileRow();
    void tintIdentityFile();

    ProfileEditorView m_state;
    FilePanels& m_filePanels;
    QLineEdit* m_password = nullptr;
    QAbstractButton* m_togglePassword = nullptr;
    QLineEdit* m_identityFile = nullptr;
    QAbstractButton* m_clearIdentityFile = nullptr;
    QLineEdit* m_extraArgs = nullptr;
};

} // namespace korvan
