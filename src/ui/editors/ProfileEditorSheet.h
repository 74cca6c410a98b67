// SPDX-License-Identifier: MIT
#pragma once

#include "ui/editors/EditorSheet.h"
#include "ui/editors/ProfileEditorView.h"

class QAbstractButton;
class QComboBox;
class QLayout;

namespace korvan {

// Draws a ProfileEditorView, which it owns. The file panels must outlive it.
class ProfileEditorSheet final : public EditorSheet {
    Q_OBJECT

public:
    ProfileEditorSheet(ProfileEditorView view, FilePanels& filePanels, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;
    void refresh() override;

private:
    [[nodiscard]] std::string_view editorTitle() const override { return m_view.editorTitle(); }
    [[nodiscard]] Validation& validation() override { return m_view; }
    void commit() override { m_view.commit(); }
    void cancel() override { m_view.cancel(); }

    QLineEdit* addTextRow(const QString& label, std::string& value);
    void addPortRow();
    void addCategoryRow();
    void addPasswordRow();
    void addIdentityFileRow();
    void tintIdentityFile();

    ProfileEditorView m_view;
    FilePanels& m_filePanels;
    QLineEdit* m_password = nullptr;
    QAbstractButton* m_togglePassword = nullptr;
    QLineEdit* m_identityFile = nullptr;
    QAbstractButton* m_clearIdentityFile = nullptr;
    QLineEdit* m_extraArgs = nullptr;
};

} // namespace korvan
