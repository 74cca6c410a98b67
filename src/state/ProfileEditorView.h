// SPDX-License-Identifier: MIT
#pragma once

#include "model/SSHCategory.h"
#include "model/SSHProfile.h"
#include "platform/FilePanels.h"
#include "state/RecordEditor.h"

#include <string_view>
#include <vector>

namespace korvan {

// One opening of the profile editor: a draft, the rules for saving it, and nothing of a screen.
class ProfileEditorView final : public RecordEditor<SSHProfile> {
public:
    ProfileEditorView(SSHProfile profile, std::vector<SSHCategory> categories,
                      std::function<void()> onCancel,
                      std::function<void(const SSHProfile&)> onSave);

    SSHProfile profile; // every input writes straight into its fields
    bool showPassword = false;

    [[nodiscard]] const std::vector<SSHCategory>& categories() const { return m_categories; }
    [[nodiscard]] std::string_view editorTitle() const;

    // Takes over what was typed into the port field. Text that is no integer of 64 bits counts as
    // port 0, which does not pass the check: the earlier port is never saved unseen.
    void setPortText(std::string_view text);

    // Asks for a key file with the open panel. Answers whether one was chosen; cancelling changes
    // nothing.
    bool chooseIdentityFile(FilePanels& filePanels);
    void clearIdentityFile() { profile.identityFile.clear(); }

private:
    [[nodiscard]] const SSHProfile& record() const override { return profile; }
    [[nodiscard]] std::optional<Problem> problem() const override;

    std::vector<SSHCategory> m_categories;
};

} // namespace korvan
