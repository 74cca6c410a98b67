// SPDX-License-Identifier: MIT
#include "state/ProfileEditorView.h"

#include "model/Text.h"

#include <charconv>
#include <utility>

namespace korvan {

namespace {

constexpr std::int64_t kLowestPort = 1;
constexpr std::int64_t kHighestPort = 65535;

} // namespace

ProfileEditorView::ProfileEditorView(SSHProfile draft, std::vector<SSHCategory> categories,
                                     std::function<void()> onCancel,
                                     std::function<void(const SSHProfile&)> onSave)
    : RecordEditor(std::move(onCancel), std::move(onSave)), profile(std::move(draft)),
      m_categories(std::move(categories)) {}

std::string_view ProfileEditorView::editorTitle() const {
    return isBlank(profile.name) ? "Neues SSH Profil" : "SSH Profil bearbeiten";
}

void ProfileEditorView::setPortText(std::string_view text) {
    const std::string_view digits = trimmed(text);
    const char* const begin = digits.data();
    const char* const end = begin + digits.size();
    std::int64_t port = 0;
    const auto result = std::from_chars(begin, end, port);
    profile.port = result.ec == std::errc() && result.ptr == end ? port : 0;
}

bool ProfileEditorView::chooseIdentityFile(FilePanels& filePanels) {
    auto path = filePanels.runOpenPanel({"SSH Key auswählen", {}});
    if (!path) return false;
    profile.identityFile = std::move(*path);
    return true;
}

std::optional<ProfileEditorView::Problem> ProfileEditorView::problem() const {
    if (isBlank(profile.name)) return Problem{EditorField::name, "Bitte einen Namen angeben."};
    if (isBlank(profile.host)) return Problem{EditorField::host, "Bitte IP/Host angeben."};
    if (isBlank(profile.user)) return Problem{EditorField::user, "Bitte Benutzername angeben."};
    if (profile.port < kLowestPort || profile.port > kHighestPort)
        return Problem{EditorField::port, "Port muss zwischen 1 und 65535 liegen."};
    return std::nullopt;
}

} // namespace korvan
