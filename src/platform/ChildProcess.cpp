// SPDX-License-Identifier: MIT
#include "platform/ChildProcess.h"

#include "platform/Files.h"

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

Result<ChildEnd> runChild(const std::filesystem::path& executable,
                          const std::vector<std::string>& arguments) {
    std::array<int, 2> pipe{};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0)
        return std::unexpected(posixError(errno, kCannotStart, executable));
    const auto [readEnd, writeEnd] = pipe;

    std::string name = executable.string();
    std::vector<std::string> words = arguments;
    std::vector<char*> pointers{name.data()};
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);

    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, writeEnd, STDERR_FILENO);
    // The child is not the one who chose to ignore that nobody listens any more.
    posix_spawnattr_t attributes{};
    posix_spawnattr_init(&attributes);
    sigset_t signals{};
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &signals);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    pid_t child = 0;
    const int error =
        ::posix_spawn(&child, name.c_str(), &actions, &attributes, pointers.data(), environ);
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

} // namespace korvan
