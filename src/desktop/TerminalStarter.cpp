// SPDX-License-Identifier: MIT
#include "desktop/TerminalStarter.h"

#include "desktop/ScriptTicket.h"
#include "platform/ChildProcess.h"

#include <QSocketNotifier>
#include <cerrno>
#include <chrono>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace korvan {

namespace {

using namespace std::chrono_literals;

// How long a process may take to open the window that a terminal has left to it.
constexpr auto kHandOver = 5s;
constexpr auto kPollInterval = 50ms;

} // namespace

TerminalStarter::TerminalStarter(std::vector<std::vector<std::string>> terminals, Job job,
                                 std::function<void()> refused, QObject* parent)
    : QObject(parent), m_terminals(std::move(terminals)), m_job(std::move(job)),
      m_refused(std::move(refused)) {
    m_handOver.setSingleShot(true);
    connect(&m_handOver, &QTimer::timeout, this, &TerminalStarter::withdrawTicket);
    connect(&m_pollTimer, &QTimer::timeout, this, &TerminalStarter::checkChild);
}

TerminalStarter::~TerminalStarter() { stopWatching(); }

bool TerminalStarter::startNext() {
    while (!m_terminals.empty()) {
        m_ticket = ScriptTicket::make(m_job.helper, m_job.script);
        if (!m_ticket) return false;
        std::vector<std::string> command = std::move(m_terminals.front());
        m_terminals.erase(m_terminals.begin());
        for (std::string& word : m_ticket->words())
            command.push_back(std::move(word));
        m_child = startDetached(std::move(command),
                                m_job.activationToken ? m_job.activationToken() : std::string());
        if (m_child != 0) {
            watchChild();
            return true;
        }
        static_cast<void>(m_ticket->withdraw());
    }
    return false;
}

void TerminalStarter::watchChild() {
    // glibc 2.36 declares pidfd_open in a way that C++ cannot link.
    m_childDescriptor = static_cast<int>(::syscall(SYS_pidfd_open, m_child, 0));
    if (m_childDescriptor >= 0) {
        m_notifier = new QSocketNotifier(m_childDescriptor, QSocketNotifier::Read, this);
        connect(m_notifier, &QSocketNotifier::activated, this, &TerminalStarter::checkChild);
    } else {
        m_pollTimer.start(kPollInterval);
    }
}

void TerminalStarter::stopWatching() {
    m_pollTimer.stop();
    if (m_notifier) {
        m_notifier->setEnabled(false);
        m_notifier->deleteLater(); // this may be a call from its signal
        m_notifier = nullptr;
    }
    if (m_childDescriptor >= 0) ::close(std::exchange(m_childDescriptor, -1));
}

void TerminalStarter::checkChild() {
    int status = 0;
    const pid_t ended = ::waitpid(m_child, &status, WNOHANG);
    if (ended == 0 || (ended < 0 && errno == EINTR)) return;
    stopWatching();
    const bool hasFailed = ended == m_child && status != 0;
    if (hasFailed)
        withdrawTicket();
    else
        m_handOver.start(kHandOver);
}

// An unused ticket tells that the script has not run. Without it, this terminal cannot run it
// later.
void TerminalStarter::withdrawTicket() {
    const bool isRefused = m_ticket->withdraw();
    if (isRefused && startNext()) return;
    deleteLater();
    // Last, and from a copy: the callee may delete the workspace, and this object with it.
    const auto refused = std::move(m_refused);
    if (isRefused) refused();
}

} // namespace korvan
