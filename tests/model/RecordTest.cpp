// SPDX-License-Identifier: MIT
#include "model/SeedData.h"
#include "support/Examples.h"

#include <array>
#include <gtest/gtest.h>

namespace korvan {

TEST(SeedData, IsAsItWasGiven) {
    SSHProfile sample;
    sample.id = sampleProfile().id;
    sample.name = "Server Zuhause";
    sample.host = "192.168.1.10";
    sample.user = "root";
    EXPECT_EQ(sampleProfile(), sample);
    EXPECT_EQ(SSHProfile().port, 22);
    EXPECT_EQ(defaultCategory().name, "Zuhause");
    const std::array<std::string, 3> snippets[] = {
        {"Ping Host", "ping -c 4 {HOST}", "4 Pakete senden"},
        {"Traceroute", "traceroute {HOST}", "Netzpfad anzeigen"},
        {"SSH Verbinden (Basis)", "ssh -p {PORT} {TARGET}", "Standard-SSH"},
        {"SSH Verbinden (Verbose)", "ssh -vvv -p {PORT} {TARGET}", "Debug-Ausgabe"},
        {"SSH: Host Key neu einlesen", "ssh-keygen -R {HOST}", "known_hosts bereinigen"},
        {"SCP Datei hochladen", "scp -P {PORT} ./datei.txt {TARGET}:/tmp/",
         "Lokale Datei \u2192 Remote"},
        {"RSYNC (empfohlen)", "rsync -avz -e \"ssh -p {PORT}\" ./ordner/ {TARGET}:/tmp/ordner/",
         "Schnell & effizient"},
    };
    ASSERT_EQ(defaultSnippets().size(), std::size(snippets));
    for (std::size_t i = 0; const CommandSnippet& snippet : defaultSnippets())
        EXPECT_EQ((std::array{snippet.title, snippet.commandTemplate, snippet.hint}),
                  snippets[i++]);
}

TEST(SSHCategory, IsTheSameHoweverItsAccentsAreComposed) {
    const SSHCategory composed = with(exampleCategory(), &SSHCategory::name, "B\u00FCro \u1EC7");
    for (const std::string name : {"Bu\u0308ro e\u0323\u0302", "Bu\u0308ro e\u0302\u0323"}) {
        const SSHCategory decomposed = with(exampleCategory(), &SSHCategory::name, name);
        EXPECT_EQ(composed, decomposed);
        EXPECT_EQ(std::hash<SSHCategory>{}(composed), std::hash<SSHCategory>{}(decomposed));
    }
    // Compatible, and yet another text.
    EXPECT_NE(with(composed, &SSHCategory::name, "\uFB01"),
              with(composed, &SSHCategory::name, "fi"));
    EXPECT_NE(composed, with(composed, &SSHCategory::id, exampleId(9)));
}

TEST(Uuid, IsRandomOfVersionFourAndWrittenInUpperCase) {
    const std::string text = Uuid::random().text();
    EXPECT_EQ(text.find_first_of("abcdef"), std::string::npos);
    EXPECT_EQ(text[14], '4');
    EXPECT_NE(std::string("89AB").find(text[19]), std::string::npos);
    EXPECT_NE(Uuid::random(), Uuid::random());
    EXPECT_EQ(Uuid::parse(text)->text(), text);
}

} // namespace korvan
