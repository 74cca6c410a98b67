// SPDX-License-Identifier: MIT
#include "platform/ChildProcess.h"

#include "platform/Files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvan {

namespace {

constexpr std::string_view kCannotStart = "Das Programm konnte nicht gestartet werden";

constexpr std::string_view kWaylandToken = "XDG_ACTIVATION_TOKEN=";
constexpr std::string_view kX11Token = "DESKTOP_STARTUP_ID=";

// The variables that tell a program who started it and for which click. They are meant for this
// program; a terminal would take them as meant for itself.
constexpr std::array kOurs{kWaylandToken, kX11Token, std::string_view("DBUS_STARTER_"),
                           std::string_view("GIO_LAUNCHED_")};

std::vector<std::string> environmentWith(std::string_view activationToken) {
    std::vector<std::string> variables;
    for (char** variable = environ; *variable; ++variable) {
        const auto begins = [&](auto name) {
            return std::string_view(*variable).starts_with(name);
        };
        if (std::ranges::none_of(kOurs, begins)) variables.emplace_back(*variable);
    }
    if (!activationToken.empty())
        for (const std::string_view name : {kWaylandToken, kX11Token})
            variables.push_back(std::string(name).append(activationToken));
    return variables;
}

// `texts` in the form that exec takes. Valid while `texts` is not changed.
std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::string readToEnd(int descriptor) {
    std::string text;
    std::array<char, 4096> part{};
    while (true) {
        const ssize_t count = ::read(descriptor, part.data(), part.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return text;
        text.append(part.data(), static_cast<std::size_t>(count));
    }
}

int waitFor(pid_t child) {
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status);
}

} // namespace

bool isExecutable(const std::filesystem::path& path) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored) && ::access(path.c_str(), X_OK) == 0;
}

Result<ChildEnd> runChild(const std::filesystem::path& executable,
                          const std::vector<std::string>& arguments) {
    std::array<int, 2> pipe{};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0)
        return std::unexpected(posixError(errno, kCannotStart, executable));
    const auto [readEnd, writeEnd] = pipe;

    std::vector<std::string> words = arguments;
    words.insert(words.begin(), executable.string());

    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, writeEnd, STDERR_FILENO);
    // This program ignores SIGPIPE; the child should not.
    posix_spawnattr_t attributes{};
    posix_spawnattr_init(&attributes);
    sigset_t signals{};
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &signals);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    pid_t child = 0;
    const int error = ::posix_spawn(&child, executable.c_str(), &actions, &attributes,
                                    pointersTo(words).data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    ::close(writeEnd);

    ChildEnd end;
    if (error == 0) {
        end.standardError = readToEnd(readEnd);
        end.status = waitFor(child);
    }
    ::close(readEnd);
    if (error != 0) return std::unexpected(posixError(error, kCannotStart, executable));
    return end;
}

pid_t startDetached(std::vector<std::string> command, std::string_view activationToken) {
    auto variables = environmentWith(activationToken);
    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawnattr_t attributes{};
    posix_spawnattr_init(&attributes);
    sigset_t signals{};
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&attributes, &signals);
    posix_spawnattr_setflags(&attributes,
                             POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    pid_t child = 0;
    const int error = ::posix_spawn(&child, command.front().c_str(), &actions, &attributes,
                                    pointersTo(command).data(), pointersTo(variables).data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? child : 0;
}

} // namespace korvan
