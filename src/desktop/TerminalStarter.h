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

// Runs a script in the first of several terminals that takes it.
//
// Each terminal gets a ticket of its own. It has refused the script when it has ended and its
// ticket is unused; then the next terminal is started. After an error status that is decided at
// once. After success it is decided some seconds later, since many terminals leave the window to a
// process that runs already. A terminal that does not end is never given up: a second window beside
// a slow first one would be worse.
//
// Deletes itself when there is nothing left to watch.
class TerminalStarter final : public QObject {
public:
    // What every terminal is to run, and with what.
    struct Job {
        std::filesystem::path helper;
        std::filesystem::path script;
        std::function<std::string()> activationToken; // makes one for each terminal; may be empty
    };

    // `terminals` are as terminalCommands() gives them. `refused` is called once, from the event
    // loop, when all terminals have refused after startNext() returned true.
    TerminalStarter(std::vector<std::vector<std::string>> terminals, Job job,
                    std::function<void()> refused, QObject* parent);
    ~TerminalStarter() override;

    // Starts the next terminal that can be started; false when there is none, or no ticket can be
    // made. Does not wait.
    [[nodiscard]] bool startNext();

private:
    void watchChild();
    void stopWatching();
    void checkChild();     // whether it has ended, and how
    void withdrawTicket(); // and go on to the next terminal if it was unused

    std::vector<std::vector<std::string>> m_terminals; // not tried yet
    Job m_job;
    std::function<void()> m_refused;
    std::unique_ptr<ScriptTicket> m_ticket; // of the terminal that was started last
    pid_t m_child = 0;
    int m_childDescriptor = -1; // readable when the child has ended
    QSocketNotifier* m_notifier = nullptr;
    QTimer m_pollTimer; // used instead of the notifier where the system has no such descriptors
    QTimer m_handOver;  // runs while another process may still use the ticket
};

} // namespace korvan
