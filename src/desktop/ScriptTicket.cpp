// SPDX-License-Identifier: MIT
#include "desktop/ScriptTicket.h"

#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>

namespace korvan {

namespace {

namespace fs = std::filesystem;

// Names in the folder. korvan-run-script uses them, too.
constexpr auto kScript = "script";
constexpr auto kHelper = "helper";

// Whether no terminal or wrapper takes `path` apart or changes it.
bool isPlain(const std::string& path) {
    constexpr std::string_view kPlain =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/._-+";
    return path.find_first_not_of(kPlain) == std::string::npos;
}

// A new folder that only its owner can enter. Its path is plain and has no links in it. Empty when
// no such folder can be made.
fs::path makeFolder() {
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    for (const fs::path parent : {runtime ? runtime : "", "/tmp"}) {
        std::error_code error;
        std::string name = fs::canonical(parent, error) / "korvan-XXXXXX";
        if (!error && parent.is_absolute() && isPlain(name) && ::mkdtemp(name.data())) return name;
    }
    return {};
}

} // namespace

std::unique_ptr<ScriptTicket> ScriptTicket::make(const fs::path& helper, const fs::path& script) {
    const fs::path folder = makeFolder();
    if (folder.empty()) return nullptr;
    const int descriptor = ::open(folder.c_str(), O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (descriptor < 0) {
        ::rmdir(folder.c_str());
        return nullptr;
    }
    std::unique_ptr<ScriptTicket> ticket(new ScriptTicket(folder, descriptor));
    ticket->m_helper = fs::absolute(helper).lexically_normal();
    bool isMade = ::symlinkat(fs::absolute(script).c_str(), descriptor, kScript) == 0;
    if (!isPlain(ticket->m_helper)) {
        isMade = isMade && ::symlinkat(ticket->m_helper.c_str(), descriptor, kHelper) == 0;
        ticket->m_helper = folder / kHelper;
    }
    if (isMade) return ticket;
    if (!ticket->withdraw()) ::rmdir(folder.c_str());
    return nullptr;
}

ScriptTicket::~ScriptTicket() { ::close(m_descriptor); }

std::vector<std::string> ScriptTicket::words() const { return {m_helper, m_folder / kScript}; }

bool ScriptTicket::withdraw() {
    if (::unlinkat(m_descriptor, kScript, 0) != 0) return false;
    ::unlinkat(m_descriptor, kHelper, 0);
    ::rmdir(m_folder.c_str());
    return true;
}

} // namespace korvan
