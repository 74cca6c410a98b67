// SPDX-License-Identifier: MIT
#include "Samples.h"

#include <array>
#include <cstdio>
#include <string>

namespace korvan::samples {

namespace {

constexpr std::size_t kFirstCategory = 1'000'000;
constexpr std::size_t kFirstSnippet = 2'000'000;

Uuid uuidOf(std::size_t number) {
    std::array<char, Uuid::kTextLength + 1> text{};
    const std::size_t scattered = number * 0x9E3779B97F4A7C15U;
    std::snprintf(text.data(), text.size(), "%08zX-%04zX-4%03zX-8000-%012zX", scattered >> 32,
                  scattered & 0xFFFF, number & 0xFFF, scattered & 0xFFFFFFFFFFFF);
    // NOLINTNEXTLINE(bugprone-unchecked-optional-access): it is one
    return Uuid::parse(text.data()).value();
}

} // namespace

std::vector<SSHProfile> makeProfiles(std::size_t count) {
    constexpr std::array<const char*, 5> places = {"Büro", "Keller", "Rechenzentrum", "Küche",
                                                   "Zuhause"};
    constexpr std::array<const char*, 4> users = {"root", "admin", "pi", "deploy"};
    std::vector<SSHProfile> profiles;
    profiles.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        SSHProfile& profile = profiles.emplace_back(uuidOf(i));
        const std::string number = std::to_string(i);
        profile.name = std::string("Server ") + places[i % places.size()] + " " + number;
        profile.host =
            i % 3 == 0 ? "192.168." + std::to_string(i / 256 % 256) + "." + std::to_string(i % 256)
                       : "host-" + number + ".intern.example.org";
        profile.user = users[i % users.size()];
        profile.port = i % 5 == 0 ? 2222 : 22;
        if (i % 4 != 0) profile.identityFile = "/home/" + profile.user + "/.ssh/id_ed25519";
        if (i % 7 == 0) profile.password = "steht im Tresor, Fach " + number;
        if (i % 6 == 0) profile.extraArgs = "-o StrictHostKeyChecking=no -J user@jump-host";
        if (i % 2 == 0) profile.categoryId = uuidOf(kFirstCategory + i % 10);
    }
    return profiles;
}

std::vector<CommandSnippet> makeSnippets(std::size_t count) {
    constexpr std::array<const char*, 10> templates = {
        "ping -c 4 {HOST}",
        "ssh -p {PORT} {TARGET} uptime",
        "scp -P {PORT} bericht.txt {TARGET}:/home/{USER}/",
        "ssh -p {PORT} {TARGET} 'sudo journalctl -u nginx --since today | tail -n 200'",
        "nmap -p {PORT} {HOST}",
        "df -h",
        "rsync -avz --delete -e 'ssh -p {PORT}' /srv/daten/ {TARGET}:/srv/sicherung/daten/",
        "echo \"Größe prüfen auf {HOST}\"",
        "curl -fsS https://{HOST}/status",
        "ssh-copy-id -p {PORT} {TARGET}",
    };
    std::vector<CommandSnippet> snippets;
    snippets.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        CommandSnippet& snippet = snippets.emplace_back(uuidOf(kFirstSnippet + i));
        const std::string number = std::to_string(i);
        snippet.title = (i % 10 == 3 ? "Protokoll für Dienst " : "Befehl ") + number;
        snippet.commandTemplate = templates[i % templates.size()];
        if (i % 3 != 0) snippet.hint = "Hinweis " + number + ": vorher anmelden";
    }
    return snippets;
}

std::vector<SSHCategory> makeCategories(std::size_t count) {
    std::vector<SSHCategory> categories;
    categories.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        categories.push_back(
            {.id = uuidOf(kFirstCategory + i), .name = "Kategorie " + std::to_string(i)});
    return categories;
}

} // namespace korvan::samples
