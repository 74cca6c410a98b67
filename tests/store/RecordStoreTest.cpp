// SPDX-License-Identifier: MIT
#include "store/RecordStore.h"

#include "model/RecordList.h"
#include "model/SeedData.h"
#include "support/Examples.h"
#include "support/MemoryKeyValueStore.h"

#include <array>
#include <gtest/gtest.h>

namespace korvan {

namespace {

constexpr std::string_view kProfilesKey = "ssh_profiles_v3";
constexpr std::string_view kCategoriesKey = "ssh_categories_v1";
constexpr std::string_view kSnippetsKey = "ssh_snippets_v1";

// Three profiles with the ids 11, 12 and 13; the first two are in the example category.
std::vector<SSHProfile> threeProfiles() {
    return {exampleProfile(11), exampleProfile(12),
            with(exampleProfile(13), &SSHProfile::categoryId, exampleId(9))};
}

// Stored data with three profiles, and everything that can be seen of it.
class RecordStoreTest : public testing::Test {
protected:
    RecordStoreTest() { stored(kProfilesKey) = encodeList(threeProfiles()); }

    std::string& stored(std::string_view key) { return memory.values[std::string(key)]; }

    std::vector<SSHProfile> storedProfiles() {
        return decodeList<SSHProfile>(stored(kProfilesKey), "").value();
    }

    // What the `action` printed.
    static std::string printedBy(const auto& action) {
        testing::internal::CaptureStdout();
        action();
        return testing::internal::GetCapturedStdout();
    }

    MemoryKeyValueStore memory;
};

} // namespace

TEST_F(RecordStoreTest, SeedsWhereThereIsNothingOrAnEmptyListAndSavesAtOnce) {
    stored(kProfilesKey) = "[]";
    EXPECT_EQ(printedBy([&] {
                  EXPECT_EQ(SSHStore(memory).profiles(), std::vector{sampleProfile()});
                  EXPECT_EQ(CategoryStore(memory).categories(), std::vector{defaultCategory()});
                  EXPECT_EQ(SnippetStore(memory).snippets(), defaultSnippets());
              }),
              "");
    EXPECT_EQ(storedProfiles(), std::vector{sampleProfile()});
    EXPECT_EQ(stored(kCategoriesKey), encodeList<SSHCategory>({defaultCategory()}));
    EXPECT_EQ(stored(kSnippetsKey), encodeList(defaultSnippets()));
    EXPECT_EQ(memory.writtenKeys.size(), 3U);
    EXPECT_TRUE(memory.preserved.empty());
}

TEST_F(RecordStoreTest, UpdatesOrRemovesTheFirstRecordThatFitsAndNothingElse) {
    SSHStore store(memory);
    const auto profiles = threeProfiles();
    const SSHProfile changed = with(profiles[1], &SSHProfile::host, "neu");
    store.add(profiles[1]);
    store.update(changed);
    EXPECT_EQ(store.profiles(), (std::vector{profiles[0], changed, profiles[2], profiles[1]}));
    store.add(profiles[1]);
    store.remove(profiles[1]);
    EXPECT_EQ(store.profiles(), (std::vector{profiles[0], changed, profiles[2], profiles[1]}));
}

TEST_F(RecordStoreTest, AllThreeAreLoadedAndReplacedAtOnceAndInOneOrder) {
    SSHStore profiles(memory);
    CategoryStore categories(memory);
    SnippetStore snippets(memory);
    std::string order;
    const std::array subscriptions = {profiles.observe([&] { order += 'p'; }),
                                      categories.observe([&] { order += 'c'; }),
                                      snippets.observe([&] { order += 's'; })};
    memory.onWrite = [&] { order += 'w'; };
    memory.calls.clear();
    loadAll(profiles, snippets, categories);
    replaceAll(profiles, snippets, categories, exampleBackup());
    EXPECT_EQ(order, "pscpscw");
    EXPECT_EQ(memory.calls, "r3w3");
    EXPECT_EQ(storedProfiles(), exampleBackup().profiles);
    memory.readingFails = true;
    EXPECT_EQ(printedBy([&] { loadAll(profiles, snippets, categories); }),
              "Profile load error: gesperrt\nSnippet load error: gesperrt\n"
              "Category load error: gesperrt\n");
    EXPECT_EQ(categories.categories(), exampleBackup().categories);
}

TEST_F(RecordStoreTest, ChangesItsListThenNotifiesThenWrites) {
    SSHStore store(memory);
    std::string order;
    memory.onWrite = [&] {
        order += 'w';
        EXPECT_EQ(storedProfiles(), store.profiles());
    };
    const Subscription subscription =
        store.observe([&] { order += std::to_string(store.profiles().size()); });
    const auto profiles = threeProfiles();
    store.clearCategory(exampleCategory().id); // of two profiles, written once
    store.clearCategory(exampleCategory().id); // nobody is in it any more
    EXPECT_EQ(store.profiles()[0].categoryId, std::nullopt);
    EXPECT_EQ(store.profiles()[1].categoryId, std::nullopt);
    EXPECT_EQ(store.profiles()[2], profiles[2]);
    store.add(exampleProfile(14));
    store.remove(exampleProfile(14));
    store.update(profiles[2]);        // equal to what is there
    store.update(exampleProfile(99)); // not there, nor is the next
    store.remove(with(profiles[2], &SSHProfile::password, "anders"));
    store.replaceAll({exampleProfile(1)});
    store.load();
    EXPECT_EQ(order, "33w4w3w3w1w1");
}

TEST_F(RecordStoreTest, PutsDamagedDataAsideBeforeItSeedsOverIt) {
    const std::string damaged = R"([{"id":"0A0B0C0D-0000-4000-8000-000000000001"}])";
    stored(kCategoriesKey) = damaged;
    stored(kSnippetsKey) = "[";
    const std::string printed = printedBy([&] {
        EXPECT_EQ(CategoryStore(memory).categories(), std::vector{defaultCategory()});
        EXPECT_EQ(SnippetStore(memory).snippets(), defaultSnippets());
    });
    EXPECT_TRUE(
        printed.starts_with("Category load error: categories[0].name: required key is missing\n"
                            "Snippet load error: snippets: not valid JSON: "))
        << printed;
    EXPECT_EQ(memory.preserved, (std::vector<std::string>{damaged, "["}));
    EXPECT_EQ(stored(kCategoriesKey), encodeList<SSHCategory>({defaultCategory()}));
}

TEST_F(RecordStoreTest, KeepsItsListWhenStoredDataIsGoneOrDamagedAndPutsThatAsideOnSaving) {
    SSHStore store(memory);
    memory.values.clear();
    EXPECT_EQ(printedBy([&] { store.load(); }), "");
    stored(kProfilesKey) = "damaged";
    EXPECT_NE(printedBy([&] { store.load(); }), "");
    EXPECT_EQ(store.profiles(), threeProfiles());
    EXPECT_TRUE(memory.preserved.empty() && memory.writtenKeys.empty());

    store.add(exampleProfile(14));
    store.save();
    EXPECT_EQ(memory.preserved, std::vector<std::string>{"damaged"});
    EXPECT_EQ(storedProfiles(), store.profiles());
}

} // namespace korvan
