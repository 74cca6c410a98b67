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

std::string expanded(std::string commandTemplate, const SSHProfile& profile) {
    return with(exampleSnippet(), &CommandSnippet::commandTemplate, std::move(commandTemplate))
        .expandedCommand(&profile);
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

TEST(ExpandedCommand, FillsThePlaceholdersFromTheProfile) {
    const SSHProfile admin = profile("admin", "192.168.1.10", 2222);
    const std::pair<std::string, std::string> cases[] = {
        {"ping -c 4 {HOST}", "ping -c 4 192.168.1.10"},
        {"ssh -p {PORT} {TARGET}", "ssh -p 2222 admin@192.168.1.10"},
        {"scp -P {PORT} ./datei.txt {TARGET}:/tmp/",
         "scp -P 2222 ./datei.txt admin@192.168.1.10:/tmp/"},
        {"ssh-keygen -R {HOST}", "ssh-keygen -R 192.168.1.10"},
        {"{USER}{USER}{{USER}}", "adminadmin{admin}"},
        {"awk '{print $1}' <= {host} {Port} { HOST } ${HOME}",
         "awk '{print $1}' <= {host} {Port} { HOST } ${HOME}"},
        {"", ""},
    };
    for (const auto& [commandTemplate, command] : cases)
        EXPECT_EQ(expanded(commandTemplate, admin), command);
}

TEST(ExpandedCommand, SearchesInsertedValuesForThePlaceholdersThatFollow) {
    EXPECT_EQ(expanded("{HOST}", profile("u", "{USER}.net", 1)), "u.net");
    EXPECT_EQ(expanded("{HOST}", profile("u", "{HOST}", 1)), "{HOST}");
    EXPECT_EQ(expanded("{USER}", profile("{HOST}{PORT}", "h", 5)), "{HOST}5");
    EXPECT_EQ(expanded("{HOST}", profile("u", "{TARGET}", 1)), "u@{TARGET}");
    EXPECT_EQ(expanded("{TARGET}", profile(" {PORT}", "{USER} ", 1)), " {PORT}@{USER} ");
    EXPECT_EQ(expanded("{PO{HOST}}", profile("u", "RT", 5)), "5");
}

} // namespace korvan
