// SPDX-License-Identifier: MIT
#include "desktop/DetachedProcess.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

namespace korvan {

namespace {

constexpr std::string_view kWaylandToken = "XDG_ACTIVATION_TOKEN=";
constexpr std::string_view kX11Token = "DESKTOP_STARTUP_ID=";

// What tells a program who started it and for which click. A terminal would take it for its own.
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

// As exec wants them. Valid as long as `texts` is.
std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

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
