// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace korvan {

// The right to run a script once: a link to it, in a new folder that only the user can enter.
//
// Whoever removes the link has the right. The helper does so when a terminal has started it, and
// then runs the script; this is the only sign that a terminal works, since nothing but words
// reaches a program in it. The program does so to take the right back. Of two that try, one
// succeeds.
//
// A folder whose link is still there when this object ends stays: the terminal may be slow, and the
// helper tidies up itself.
class ScriptTicket final {
public:
    // nullptr when no such folder can be made.
    [[nodiscard]] static std::unique_ptr<ScriptTicket> make(const std::filesystem::path& helper,
                                                            const std::filesystem::path& script);
    ScriptTicket(const ScriptTicket&) = delete;
    ScriptTicket& operator=(const ScriptTicket&) = delete;
    ~ScriptTicket();

    // The command that uses the ticket. No terminal takes these words apart: they are free of
    // blanks, quotes and whatever else a shell would look at.
    [[nodiscard]] std::vector<std::string> words() const;

    // Takes the right back and removes the folder. False when the helper was faster.
    [[nodiscard]] bool withdraw();

private:
    ScriptTicket(std::filesystem::path folder, int descriptor)
        : m_folder(std::move(folder)), m_descriptor(descriptor) {}

    std::filesystem::path m_folder;
    int m_descriptor; // of the folder, which others could replace once the helper has removed it
    std::string m_helper;
};

} // namespace korvan
