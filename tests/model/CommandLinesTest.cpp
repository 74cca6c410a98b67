// SPDX-License-Identifier: MIT
#include "platform/ChildProcess.h"
#include "support/Examples.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace korvan {

namespace {

SSHProfile profile(std::string user, std::string host, std::int64_t port,
                   std::string identityFile = "", std::string extraArgs = "") {
    return {.name = "Name",
            .host = std::move(host),
            .user = std::move(user),
            .port = port,
            .identityFile = std::move(identityFile),
            .password = "geheim",
            .extraArgs = std::move(extraArgs),
            .categoryId = {}};
}

} // namespace

TEST(SSHCommand, IsBuiltFromTheProfile) {
    const std::pair<SSHProfile, std::string> cases[] = {
        {profile("admin", "192.168.1.10", 22), "ssh -p 22 admin@192.168.1.10"},
        {profile("pi", "10.0.0.7", 2222, " /Users/pi/.ssh/id_ed25519 "),
         "ssh -p 2222 -i \"/Users/pi/.ssh/id_ed25519\" pi@10.0.0.7"},
        {profile("root", "10.0.0.7", 22, "/keys/my \"prod\" key", "-o StrictHostKeyChecking=no"),
         "ssh -p 22 -i \"/keys/my \\\"prod\\\" key\" -o StrictHostKeyChecking=no root@10.0.0.7"},
        {profile("deploy", "10.1.2.3", 22, "   ", " -J user@jump-host "),
         "ssh -p 22 -J user@jump-host deploy@10.1.2.3"},
        {profile("u", "h", -7, "\n\u2028\u00A0", "\t\r\n"), "ssh -p -7 u@h"},
        {profile("u", "h", 22, "~/$k`\\\\n'\u3000"), "ssh -p 22 -i \"~/$k`\\\\n'\" u@h"},
        {profile("u", "h", 22, "", "\n-v\n-A \"$x\"\n"), "ssh -p 22 -v\n-A \"$x\" u@h"},
        {profile("", " h ", 1'000'000), "ssh -p 1000000 @ h "},
    };
    for (const auto& [profile, command] : cases)
        EXPECT_EQ(profile.sshCommand(), command);
}

TEST(SSHCommand, ReachesSshAsItWasMeantThroughARealShell) {
    const TemporaryFolder folder;
    const auto fake = folder.file("ssh", "#!/bin/sh\nprintf '[%s]' \"$@\" >&2\n");
    std::filesystem::permissions(fake, std::filesystem::perms(0700));
    const std::string path = "PATH=" + folder.path().string() + ":/usr/bin:/bin";
    const std::string key = "/Schlüssel von Jürgen/it's \"prod\" & (neu);#*?.pem";
    const std::string command =
        profile("pi", "höst", 2222, key, "-o 'Proxy=a  b' -J u@jump").sshCommand();
    for (const std::string shell : {"sh", "bash", "zsh"}) {
        if (runChild("/bin/sh", {"-c", "command -v " + shell + " >/dev/null"})->status != 0)
            continue;
        for (const std::string locale : {"LC_ALL=C", "LC_ALL=C.UTF-8"})
            EXPECT_EQ(
                runChild("/usr/bin/env", {"-i", path, locale, shell, "-c", command})->standardError,
                "[-p][2222][-i][" + key + "][-o][Proxy=a  b][-J][u@jump][pi@höst]")
                << shell << ' ' << locale;
    }
}

TEST(ExpandedCommand, FillsThePlaceholdersInTheirOrderInInsertedValuesToo) {
    const SSHProfile admin = profile("admin", "192.168.1.10", 2222);
    const std::tuple<SSHProfile, std::string, std::string> cases[] = {
        {admin, "ping -c 4 {HOST}", "ping -c 4 192.168.1.10"},
        {admin, "ssh -p {PORT} {TARGET}", "ssh -p 2222 admin@192.168.1.10"},
        {admin, "{USER}{USER}{{USER}}", "adminadmin{admin}"},
        {admin, "awk '{print $1}' <= {host} {Port} { HOST } ${HOME}",
         "awk '{print $1}' <= {host} {Port} { HOST } ${HOME}"},
        {admin, "", ""},
        {profile("u", "{USER}.net", 1), "{HOST}", "u.net"},
        {profile("u", "{HOST}", 1), "{HOST}", "{HOST}"},
        {profile("{HOST}{PORT}", "h", 5), "{USER}", "{HOST}5"},
        {profile("u", "{TARGET}", 1), "{HOST}", "u@{TARGET}"},
        {profile(" {PORT}", "{USER} ", 1), "{TARGET}", " {PORT}@{USER} "},
        {profile("u", "RT", 5), "{PO{HOST}}", "5"},
    };
    for (const auto& [profile, text, command] : cases)
        EXPECT_EQ(with(exampleSnippet(), &CommandSnippet::commandTemplate, text)
                      .expandedCommand(&profile),
                  command);
}

} // namespace korvan
