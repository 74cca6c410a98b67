// SPDX-License-Identifier: MIT
#include "model/SeedData.h"

#include <string>
#include <utility>

namespace korvan {

namespace {

CommandSnippet snippet(std::string title, std::string commandTemplate, std::string hint) {
    CommandSnippet snippet;
    snippet.title = std::move(title);
    snippet.commandTemplate = std::move(commandTemplate);
    snippet.hint = std::move(hint);
    return snippet;
}

} // namespace

const SSHProfile& sampleProfile() {
    static const SSHProfile profile = [] {
        SSHProfile sample;
        sample.name = "Server Zuhause";
        sample.host = "192.168.1.10";
        sample.user = "root";
        return sample;
    }();
    return profile;
}

const SSHCategory& defaultCategory() {
    static const SSHCategory category = [] {
        SSHCategory home;
        home.name = "Zuhause";
        return home;
    }();
    return category;
}

const std::vector<CommandSnippet>& defaultSnippets() {
    static const std::vector<CommandSnippet> snippets = {
        snippet("Ping Host", "ping -c 4 {HOST}", "4 Pakete senden"),
        snippet("Traceroute", "traceroute {HOST}", "Netzpfad anzeigen"),
        snippet("SSH Verbinden (Basis)", "ssh -p {PORT} {TARGET}", "Standard-SSH"),
        snippet("SSH Verbinden (Verbose)", "ssh -vvv -p {PORT} {TARGET}", "Debug-Ausgabe"),
        snippet("SSH: Host Key neu einlesen", "ssh-keygen -R {HOST}", "known_hosts bereinigen"),
        snippet("SCP Datei hochladen", "scp -P {PORT} ./datei.txt {TARGET}:/tmp/",
                "Lokale Datei → Remote"),
        snippet("RSYNC (empfohlen)",
                R"(rsync -avz -e "ssh -p {PORT}" ./ordner/ {TARGET}:/tmp/ordner/)",
                "Schnell & effizient"),
    };
    return snippets;
}

} // namespace korvan
