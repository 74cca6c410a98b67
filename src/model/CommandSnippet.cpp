// SPDX-License-Identifier: MIT
#include "model/CommandSnippet.h"

#include <utility>

namespace korvan {

// The tokens are replaced one after the other, so a token inside an earlier value is replaced, too.
// Users rely on that, for instance to have {USER} in the host.
CommandExpansion::CommandExpansion(const SSHProfile* profile) : m_hasProfile(profile != nullptr) {
    if (!profile) return;
    m_replacements = {{{"{HOST}", profile->host},
                       {"{USER}", profile->user},
                       {"{PORT}", std::to_string(profile->port)},
                       {"{TARGET}", profile->target()}}};
}

const std::string& CommandExpansion::of(const CommandSnippet& snippet) {
    if (!m_hasProfile || snippet.commandTemplate.find('{') == std::string::npos)
        return snippet.commandTemplate;
    m_command = snippet.commandTemplate;
    for (const Replacement& replacement : m_replacements)
        replace(replacement);
    return m_command;
}

void CommandExpansion::replace(const Replacement& replacement) {
    const auto& [token, value] = replacement;
    std::size_t at = m_command.find(token);
    if (at == std::string::npos) return;
    m_spare.clear();
    std::size_t start = 0;
    for (; at != std::string::npos; at = m_command.find(token, start)) {
        m_spare.append(m_command, start, at - start).append(value);
        start = at + token.size();
    }
    m_spare.append(m_command, start);
    std::swap(m_command, m_spare);
}

std::string CommandSnippet::expandedCommand(const SSHProfile* profile) const {
    return CommandExpansion(profile).of(*this);
}

} // namespace korvan
