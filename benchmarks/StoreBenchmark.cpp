// SPDX-License-Identifier: MIT
//
// What the lists cost on their way to the disk and back, beside the bare work on the same bytes,
// and how that grows with their length.
//
// The files are made in the folder that TMPDIR names; it should lie on a disk that keeps them.
#include "Samples.h"
#include "Timings.h"
#include "desktop/SqliteKeyValueStore.h"
#include "model/CommandSnippet.h"
#include "model/KorvanBackup.h"
#include "model/RecordList.h"
#include "platform/Files.h"
#include "state/ContentView.h"
#include "support/MemoryKeyValueStore.h"
#include "support/RecordingDesktop.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <malloc.h>
#include <map>
#include <simdjson.h>
#include <unistd.h>

namespace korvan {

namespace {

bool isAllGood = true;

[[noreturn]] void giveUp(const char* why) {
    std::fprintf(stderr, "nothing is measured: %s\n", why);
    std::exit(EXIT_FAILURE);
}

void require(bool isTrue, const char* what) {
    if (!isTrue) giveUp(what);
}

void print(const char* what, double time, double bare, double limit) {
    const bool isGood = time <= limit * bare;
    isAllGood = isAllGood && isGood;
    std::printf("| %s | %.1f | %.1f | %.2f | %.1f | %s |\n", what, time, bare, time / bare, limit,
                isGood ? "yes" : "NO");
}

// A change of one profile, until it is on the disk, beside encoding the list and replacing a file.
void measureChange(const TemporaryFolder& folder) {
    constexpr std::size_t count = 10'000;
    constexpr int rounds = 41;
    SqliteKeyValueStore values(folder.path() / "change.sqlite3");
    SSHStore store(values);
    store.replaceAll(samples::makeProfiles(count));
    std::vector<double> changes;
    std::vector<double> files;
    for (std::size_t round = 0; round < rounds; ++round) {
        SSHProfile profile = store.profiles()[round * 211 % count];
        profile.name += "!";
        changes.push_back(timeOf([&] { store.update(profile); }));
        files.push_back(timeOf([&] {
            require(writeFileAtomically(folder.path() / "change.json", encodeList(store.profiles()))
                        .has_value(),
                    "the file cannot be written");
        }));
    }
    const auto stored = values.dataForKey("ssh_profiles_v3");
    require(stored && *stored == encodeList(store.profiles()), "a change was not stored");
    print("a change among 10,000 profiles", median(changes), median(files), 1.5);
}

double parse(const std::string& bytes) {
    return timeOf([&] {
        simdjson::dom::parser parser;
        require(parser.parse(bytes).error() == simdjson::SUCCESS, "the backup is no JSON");
    });
}

double write(const std::filesystem::path& path, std::string_view bytes) {
    return timeOf([&] {
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        const bool isWritten = file >= 0 && ::write(file, bytes.data(), bytes.size()) ==
                                                static_cast<ssize_t>(bytes.size());
        require(isWritten && ::fsync(file) == 0 && ::close(file) == 0, "the disk is full");
    });
}

// Both as the user does them, beside what any program must do with such a document.
void measureBackup(const TemporaryFolder& folder) {
    constexpr int rounds = 11;
    SqliteKeyValueStore values(folder.path() / "backup.sqlite3");
    RecordingDesktop desktop;
    ContentView view(values, desktop.desktop());
    view.store.replaceAll(samples::makeProfiles(100'000));
    view.categoryStore.replaceAll(samples::makeCategories(1'000));
    view.snippetStore.replaceAll(samples::makeSnippets(10'000));
    const std::vector<SSHProfile> profiles = view.store.profiles();
    desktop.filePanels.answer = folder.path() / "backup.json";
    std::vector<double> exports;
    std::vector<double> imports;
    std::vector<double> bare;
    for (int round = 0; round < rounds; ++round) {
        exports.push_back(timeOf([&] { view.exportBackup(); }));
        imports.push_back(timeOf([&] {
            view.importBackup();
            view.confirmImport();
        }));
        require(!view.showError && view.store.profiles() == profiles, "the backup is another one");
        const std::string bytes = readFile(*desktop.filePanels.answer).value();
        const KorvanBackup backup = readBackup(bytes, {}).value();
        std::string encoded;
        const double encoding = timeOf([&] { encoded = writeBackup(backup); });
        require(encoded == bytes, "the backup is encoded otherwise");
        bare.push_back(parse(bytes) + encoding + write(folder.path() / "bare.json", bytes));
    }
    print("export of 100,000 profiles, 1,000 categories, 10,000 commands", median(exports),
          median(bare), 3);
    print("import of the same, stored", median(imports), median(bare), 3);
}

struct Growth {
    std::vector<std::pair<const char*, double>> times;
    double memory = 0; // of the lists, in times of their JSON
};

double inMemory() {
    const auto info = ::mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

Growth measureSize(std::size_t count) {
    Growth growth;
    MemoryKeyValueStore values;
    const std::string profilesJson = encodeList(samples::makeProfiles(count));
    const std::string snippetsJson = encodeList(samples::makeSnippets(count));
    values.values["ssh_profiles_v3"] = profilesJson;
    values.values["ssh_snippets_v1"] = snippetsJson;
    values.values["ssh_categories_v1"] = encodeList(samples::makeCategories(10));
    RecordingDesktop desktop;
    const double before = inMemory();
    ContentView view(values, desktop.desktop());
    growth.memory =
        (inMemory() - before) / static_cast<double>(profilesJson.size() + snippetsJson.size());
    view.selectProfile(view.store.profiles().back());
    view.snippetSearch = "protokoll";
    const SSHCategory category = view.categoryStore.categories()[2];
    std::size_t changed = 0;
    const Subscription subscription = view.observe([&] { ++changed; });
    const auto measure = [&](const char* what, const std::function<void()>& work) {
        const int rounds = count > 10'000 ? 7 : 31;
        std::vector<double> times;
        for (int round = 0; round < rounds; ++round) {
            times.push_back(timeOf(work));
            values.values["ssh_profiles_v3"] = profilesJson;
            view.store.load();
        }
        growth.times.emplace_back(what, median(times));
    };
    measure("load", [&] { view.store.load(); });
    measure("save", [&] { view.store.save(); });
    measure("update", [&] { view.store.update(view.store.profiles().back()); });
    measure("remove", [&] { view.store.remove(view.store.profiles()[count / 2]); });
    measure("clearCategory", [&] { view.store.clearCategory(category.id); });
    measure("filter profiles", [&] {
        view.categoryFilter = CategoryFilter::category(category.id);
        require(view.filteredProfiles().size() == count / 10, "the filter admits others");
    });
    measure("search commands",
            [&] { require(view.filteredSnippets().size() == count / 10, "it finds others"); });
    measure("expand all commands", [&] {
        std::size_t length = 0;
        CommandExpansion expansion(view.selectedProfile());
        for (const CommandSnippet& snippet : view.snippetStore.snippets())
            length += expansion.of(snippet).size();
        require(length > count, "the commands are empty");
    });
    require(changed > count / 10, "nobody was told of the changes");
    return growth;
}

void measureGrowth() {
    constexpr double most = 12;
    std::array<Growth, 3> sizes;
    std::size_t count = 1'000;
    for (Growth& size : sizes) {
        size = measureSize(count);
        count *= 10;
    }
    std::puts("\n| | 1,000, ms | 10,000, ms | 100,000, ms | growth | limit | kept |\n"
              "|---|---|---|---|---|---|---|");
    for (std::size_t i = 0; i < sizes[0].times.size(); ++i) {
        const auto time = [&](std::size_t size) { return sizes[size].times[i].second; };
        const double first = time(1) / time(0);
        const double second = time(2) / time(1);
        const bool isGood = std::max(first, second) <= most;
        isAllGood = isAllGood && isGood;
        std::printf("| %s | %.3f | %.3f | %.2f | %.1f, %.1f | %.0f | %s |\n",
                    sizes[0].times[i].first, time(0), time(1), time(2), first, second, most,
                    isGood ? "yes" : "NO");
    }
    std::printf("\nThe lists in memory take %.2f, %.2f and %.2f times the size of their JSON.\n",
                sizes[0].memory, sizes[1].memory, sizes[2].memory);
}

} // namespace

} // namespace korvan

int main() {
    const korvan::TemporaryFolder folder;
    std::puts("| | ms | the bare work, ms | ratio | limit | kept |\n|---|---|---|---|---|---|");
    korvan::measureChange(folder);
    korvan::measureBackup(folder);
    korvan::measureGrowth();
    return korvan::isAllGood ? EXIT_SUCCESS : EXIT_FAILURE;
}
