// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <sys/types.h>
#include <vector>

class QSocketNotifier;

namespace korvan {

class ScriptTicket;

// The attempt to run a script in the first of several terminals that takes it.
//
// Each is started with a ticket of its own. One that ends with an error status while its ticket is
// still unused is refused at once, one that ends well a while later, since many hand over to a
// process that runs already. Then the next one is started. One that runs on is waited for: a second
// window beside a slow first one is worse.
//
// Deletes itself when there is nothing left to watch.
class TerminalStarter final : public QObject {
public:
    struct Run {
        std::filesystem::path helper;
        std::filesystem::path script;
        std::function<std::string()> activationToken; // a new one for each terminal; may be absent
    };

    // `refused` is called from the event loop when all have been refused after start() answered
    // true. `terminals` are as terminalCommands() has them.
    TerminalStarter(std::vector<std::vector<std::string>> terminals, Run run,
                    std::function<void()> refused, QObject* parent);
    ~TerminalStarter() override;

    // Starts the first terminal that can be started; false when there is none. Does not wait.
    [[nodiscard]] bool start();

private:
    void watch();
    void stopWatching();
    void look();
    void decide();

    std::vector<std::vector<std::string>> m_terminals; // not tried yet
    Run m_run;
    std::function<void()> m_refused;
    std::unique_ptr<ScriptTicket> m_ticket; // of the terminal that was started last
    pid_t m_child = 0;
    int m_childDescriptor = -1; // readable when the child has ended
    QSocketNotifier* m_notifier = nullptr;
    QTimer m_pollTimer; // instead of the notifier, on a system without such descriptors
    QTimer m_handOver;  // runs while another process may still use the ticket
};

} // namespace korvan
