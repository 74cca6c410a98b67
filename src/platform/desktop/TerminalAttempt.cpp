// SPDX-License-Identifier: MIT
#include "platform/desktop/TerminalAttempt.h"

#include <QSocketNotifier>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace korvan {

namespace {

using namespace std::chrono_literals;

// Terminals that cannot reach a display say so well within this time.
constexpr auto kFirstMoments = 300ms;
constexpr auto kPollInterval = 50ms;

// Starts `command` on its own: no terminal of ours, no input, no signals blocked or ignored. 0 when
// it cannot be started.
pid_t spawn(std::vector<std::string> command) {
    std::vector<char*> pointers;
    pointers.reserve(command.size() + 1);
    for (std::string& word : command)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);

    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
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
    const int error =
        ::posix_spawn(&child, pointers.front(), &actions, &attributes, pointers.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? child : 0;
}

} // namespace

TerminalAttempt::TerminalAttempt(std::vector<std::vector<std::string>> commands,
                                 std::function<void()> refused, QObject* parent)
    : QObject(parent), m_commands(std::move(commands)), m_refused(std::move(refused)) {
    m_firstMoments.setSingleShot(true);
    // When the event loop was busy for longer, the end of the child is still to be noticed: it
    // counts as early.
    connect(&m_firstMoments, &QTimer::timeout, this, &TerminalAttempt::look);
    connect(&m_pollTimer, &QTimer::timeout, this, &TerminalAttempt::look);
}

TerminalAttempt::~TerminalAttempt() { stopWatching(); }

bool TerminalAttempt::start() {
    while (!m_commands.empty()) {
        m_child = spawn(std::move(m_commands.front()));
        m_commands.erase(m_commands.begin());
        if (m_child == 0) continue;
        watch();
        return true;
    }
    return false;
}

void TerminalAttempt::watch() {
    // glibc 2.36 declares pidfd_open in a way that C++ cannot link.
    m_childDescriptor = static_cast<int>(::syscall(SYS_pidfd_open, m_child, 0));
    if (m_childDescriptor >= 0) {
        m_notifier = new QSocketNotifier(m_childDescriptor, QSocketNotifier::Read, this);
        connect(m_notifier, &QSocketNotifier::activated, this, &TerminalAttempt::look);
    } else {
        m_pollTimer.start(kPollInterval);
    }
    m_firstMoments.start(kFirstMoments);
}

void TerminalAttempt::stopWatching() {
    m_firstMoments.stop();
    m_pollTimer.stop();
    if (m_notifier) {
        m_notifier->setEnabled(false);
        m_notifier->deleteLater(); // it may be the one that called
        m_notifier = nullptr;
    }
    if (m_childDescriptor >= 0) ::close(std::exchange(m_childDescriptor, -1));
}

void TerminalAttempt::look() {
    // The timer is single-shot and already inactive when it is the one that calls.
    const bool isEarly = sender() == &m_firstMoments || m_firstMoments.isActive();
    int status = 0;
    const pid_t ended = ::waitpid(m_child, &status, WNOHANG);
    if (ended == 0 || (ended < 0 && errno == EINTR)) return;
    stopWatching();
    const bool hasFailed = ended == m_child && status != 0;
    if (isEarly && hasFailed) {
        if (start()) return;
        deleteLater();
        // Last, and without this object: the callee may end the workspace.
        const auto refused = std::move(m_refused);
        return refused();
    }
    deleteLater();
}

} // namespace korvan
