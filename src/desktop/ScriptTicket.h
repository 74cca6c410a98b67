// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace korvan {

// The right to run a script once: a link to it, in a new folder that only the user can enter.
//
// Whoever removes the link has the right. The helper removes it when a terminal has started it, and
// then runs the script. That is the only sign that a terminal works, since a program in a terminal
// gets nothing from Korvan but its arguments. Korvan removes the link to take the right back. When
// both try, only one succeeds.
//
// When this object ends and the link is still there, the folder stays: the terminal may be slow,
// and the helper removes it.
class ScriptTicket final {
public:
    // nullptr when no such folder can be made.
    [[nodiscard]] static std::unique_ptr<ScriptTicket> make(const std::filesystem::path& helper,
                                                            const std::filesystem::path& script);
    ScriptTicket(const ScriptTicket&) = delete;
    ScriptTicket& operator=(const ScriptTicket&) = delete;
    ~ScriptTicket();

    // The command that uses the ticket. Its words are free of blanks, quotes and other characters
    // that mean something to a shell, so no terminal takes them apart.
    [[nodiscard]] std::vector<std::string> words() const;

    // Takes the right back and removes the folder. False when the helper has used the ticket.
    [[nodiscard]] bool withdraw();

private:
    ScriptTicket(std::filesystem::path folder, int descriptor)
        : m_folder(std::move(folder)), m_descriptor(descriptor) {}

    std::filesystem::path m_folder;
    int m_descriptor; // of the folder; others could make a new one at its path once it is removed
    std::string m_helper;
};

} // namespace korvan
