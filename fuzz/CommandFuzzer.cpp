// SPDX-License-Identifier: MIT
//
// Any bytes in what command lines and terminal scripts are made of.
#include "Fuzz.h"
#include "actions/TerminalLauncher.h"

namespace korvan::fuzz {

namespace {

// `text` with each `token` replaced, found by looking at every place in turn.
std::string replacedByWalking(std::string_view text, std::string_view token,
                              std::string_view value) {
    std::string result;
    while (!text.empty()) {
        const bool isToken = text.starts_with(token);
        result += isToken ? value : text.substr(0, 1);
        text.remove_prefix(isToken ? token.size() : 1);
    }
    return result;
}

void expand(const CommandSnippet& snippet, const SSHProfile& profile) {
    require(snippet.expandedCommand(nullptr) == snippet.commandTemplate,
            "without a profile the template stays");
    std::string expected = snippet.commandTemplate;
    expected = replacedByWalking(expected, "{HOST}", profile.host);
    expected = replacedByWalking(expected, "{USER}", profile.user);
    expected = replacedByWalking(expected, "{PORT}", std::to_string(profile.port));
    expected = replacedByWalking(expected, "{TARGET}", profile.target());
    require(snippet.expandedCommand(&profile) == expected, "each token becomes its value");
}

void connect(const SSHProfile& profile) {
    const std::string command = profile.sshCommand();
    require(command.starts_with("ssh -p " + std::to_string(profile.port) + " "),
            "the port comes first");
    require(command.ends_with(" " + profile.target()), "the target comes last");
    require(command.find(trimmed(profile.extraArgs)) != std::string::npos, "arguments stay");
}

void writeScript(std::string_view command) {
    const std::string script = terminalScript(command);
    const std::string valid = mended(command);
    require(isValidUtf8(script), "a script is UTF-8");
    constexpr std::string_view head = "#!/bin/zsh\nset -e\ncd ~\nclear\necho \"▶\uFE0E ";
    require(script.starts_with(head), "the head is fixed");
    std::string shown;
    std::size_t at = head.size();
    for (; script.at(at) != '"'; ++at)
        shown += script[at] == '\\' ? script[++at] : script[at];
    require(shown == valid, "the echo shows the command");
    const std::string tail =
        "\"\necho \"\"\n" + valid + "\necho \"\"\necho \"⏎ Enter zum Schließen…\"\nread";
    require(script.substr(at) == tail, "the command follows, and then the wait for Enter");
}

} // namespace

} // namespace korvan::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t length) {
    using namespace korvan;
    fuzz::Source source(bytes, length);
    SSHProfile profile(Uuid{});
    profile.port = source.number();
    for (std::string* text :
         {&profile.user, &profile.host, &profile.identityFile, &profile.extraArgs})
        *text = source.text();
    CommandSnippet snippet(Uuid{});
    snippet.commandTemplate = source.rest();
    fuzz::expand(snippet, profile);
    fuzz::connect(profile);
    fuzz::writeScript(profile.sshCommand());
    fuzz::writeScript(snippet.commandTemplate);
    return 0;
}
