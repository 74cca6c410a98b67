// SPDX-License-Identifier: MIT
#pragma once

#include "model/SSHCategory.h"
#include "model/SSHProfile.h"
#include "platform/FilePanels.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvan {

// One opening of the profile editor: a draft, the rules for saving it, and nothing of a screen. It
// works on its own copy and hands that back; closing the sheet is the caller's business.
class ProfileEditorView final {
public:
    ProfileEditorView(SSHProfile profile, std::vector<SSHCategory> categories,
                      std::function<void()> onCancel,
                      std::function<void(const SSHProfile&)> onSave);

    SSHProfile profile;                         // every input writes straight into its fields
    std::optional<std::string> validationError; // of the last failed save
    bool showPassword = false;

    [[nodiscard]] const std::vector<SSHCategory>& categories() const { return m_categories; }
    [[nodiscard]] std::string_view editorTitle() const;

    // Takes over what was typed into the port field. Text that is no integer of 64 bits counts as
    // port 0, which does not pass the check: the earlier port is never saved unseen.
    void setPortText(std::string_view text);

    // Asks for a key file with the open panel. Cancelling changes nothing.
    void chooseIdentityFile(FilePanels& filePanels);
    void clearIdentityFile() { profile.identityFile.clear(); }

    // Whether the profile may be saved; sets or clears the message.
    bool validate();

    // Hands the profile, exactly as edited, to `onSave` if it passes the check. Only the first
    // time: a second Return before the sheet has gone must not add the profile twice.
    void commit();
    void cancel() { m_onCancel(); }

private:
    std::vector<SSHCategory> m_categories;
    std::function<void()> m_onCancel;
    std::function<void(const SSHProfile&)> m_onSave;
};

} // namespace korvan
