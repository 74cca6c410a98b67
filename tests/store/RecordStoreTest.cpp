// SPDX-License-Identifier: MIT
#include "store/RecordStore.h"

#include "model/RecordList.h"
#include "model/SeedData.h"
#include "support/Examples.h"
#include "support/MemoryKeyValueStore.h"

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

// A profile store that has loaded three profiles, and everything that can be seen of it.
struct LoadedStore {
    LoadedStore() { memory.values = {{"ssh_profiles_v3", encodeList(threeProfiles())}}; }

    [[nodiscard]] std::vector<SSHProfile> stored() const {
        return decodeList<SSHProfile>(memory.values.find(kProfilesKey)->second, "").value();
    }

    // What the `action` printed.
    template <class Action>
    std::string printedBy(const Action& action) {
        testing::internal::CaptureStdout();
        action();
        return testing::internal::GetCapturedStdout();
    }

    MemoryKeyValueStore memory;
};

} // namespace

TEST(RecordStore, SeedsAnEmptyStoreAndSavesAtOnce) {
    MemoryKeyValueStore memory;
    const SSHStore profiles(memory);
    const CategoryStore categories(memory);
    const SnippetStore snippets(memory);
    EXPECT_EQ(profiles.profiles(), std::vector{sampleProfile()});
    EXPECT_EQ(categories.categories(), std::vector{defaultCategory()});
    EXPECT_EQ(snippets.snippets(), defaultSnippets());
    EXPECT_EQ(memory.values.find(kProfilesKey)->second, encodeList(profiles.profiles()));
    EXPECT_EQ(memory.values.find(kCategoriesKey)->second, encodeList(categories.categories()));
    EXPECT_EQ(memory.values.find(kSnippetsKey)->second, encodeList(snippets.snippets()));
    EXPECT_EQ(memory.writtenKeys.size(), 3U);

    MemoryKeyValueStore other;
    EXPECT_EQ(SnippetStore(other).snippets(), snippets.snippets())
        << "the ids are those of the run";
}

TEST(RecordStore, SeedsOverAnEmptyListAndOverAValueOfAnotherType) {
    LoadedStore loaded;
    loaded.memory.values[std::string(kProfilesKey)] = "[]";
    loaded.memory.keysOfOtherTypes.emplace(kSnippetsKey);
    const std::string printed = loaded.printedBy([&] {
        EXPECT_EQ(SSHStore(loaded.memory).profiles().size(), 1U);
        EXPECT_EQ(SnippetStore(loaded.memory).snippets().size(), 7U);
    });
    EXPECT_EQ(printed, "");
    EXPECT_EQ(loaded.stored(), std::vector{sampleProfile()});
    EXPECT_EQ(loaded.memory.writtenKeys.size(), 2U);
    EXPECT_TRUE(loaded.memory.preserved.empty());
}

TEST(RecordStore, PutsNewProfilesLastAndOtherNewRecordsFirst) {
    LoadedStore loaded;
    SSHStore profiles(loaded.memory);
    CategoryStore categories(loaded.memory);
    SnippetStore snippets(loaded.memory);
    profiles.add(exampleProfile(20));
    categories.add(exampleCategory());
    snippets.add(exampleSnippet());
    EXPECT_EQ(profiles.profiles().back().id, exampleId(20));
    EXPECT_EQ(categories.categories(), (std::vector{exampleCategory(), defaultCategory()}));
    EXPECT_EQ(snippets.snippets().front(), exampleSnippet());
    EXPECT_EQ(loaded.stored(), profiles.profiles());
}

TEST(RecordStore, UpdatesTheFirstRecordOfTheSameIdInItsPlace) {
    LoadedStore loaded;
    SSHStore store(loaded.memory);
    store.add(exampleProfile(12));
    const SSHProfile changed = with(exampleProfile(12), &SSHProfile::host, "neu");
    store.update(changed);
    EXPECT_EQ(store.profiles()[1], changed);
    EXPECT_EQ(store.profiles()[3], exampleProfile(12));
    EXPECT_EQ(loaded.stored(), store.profiles());
    loaded.memory.writtenKeys.clear();
    store.update(exampleProfile(99));
    EXPECT_TRUE(loaded.memory.writtenKeys.empty());
}

TEST(RecordStore, RemovesOnlyARecordThatIsEqualInEveryField) {
    LoadedStore loaded;
    SSHStore store(loaded.memory);
    store.remove(with(exampleProfile(12), &SSHProfile::password, "anders"));
    EXPECT_EQ(store.profiles(), threeProfiles());
    EXPECT_TRUE(loaded.memory.writtenKeys.empty());
    store.remove(store.profiles()[1]);
    EXPECT_EQ(store.profiles(), (std::vector{threeProfiles()[0], threeProfiles()[2]}));
    EXPECT_EQ(loaded.stored(), store.profiles());
}

TEST(RecordStore, ClearsACategoryNotifyingForEachProfileAndSavingOnce) {
    LoadedStore loaded;
    SSHStore store(loaded.memory);
    int calls = 0;
    const Subscription subscription = store.observe([&] { ++calls; });
    store.clearCategory(exampleCategory().id);
    EXPECT_EQ(store.profiles()[0].categoryId, std::nullopt);
    EXPECT_EQ(store.profiles()[1].categoryId, std::nullopt);
    EXPECT_EQ(store.profiles()[2], threeProfiles()[2]);
    EXPECT_EQ(calls, 2);
    store.clearCategory(exampleCategory().id);
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(loaded.memory.writtenKeys.size(), 1U);
}

TEST(RecordStore, ChangesItsListThenNotifiesThenWrites) {
    LoadedStore loaded;
    SSHStore store(loaded.memory);
    std::string order;
    loaded.memory.onWrite = [&] { order += 'w'; };
    const Subscription subscription =
        store.observe([&] { order += std::to_string(store.profiles().size()); });
    store.add(exampleProfile(14));
    store.remove(exampleProfile(14));
    store.update(exampleProfile(11)); // equal to what is there
    store.replaceAll({exampleProfile(1)});
    store.load();
    EXPECT_EQ(order, "4w3w3w1w1");
}

TEST(RecordStore, KeepsAChangeThatCouldNotBeWrittenUntilAWriteSucceeds) {
    LoadedStore loaded;
    SSHStore store(loaded.memory);
    loaded.memory.writingFails = true;
    EXPECT_EQ(loaded.printedBy([&] { store.add(exampleProfile(14)); }),
              "Profile save error: kein Platz\n");
    EXPECT_EQ(store.profiles().size(), 4U);
    EXPECT_EQ(loaded.stored(), threeProfiles());
    loaded.memory.writingFails = false;
    store.update(exampleProfile(11));
    EXPECT_EQ(loaded.stored(), store.profiles());
    EXPECT_EQ(loaded.stored().size(), 4U);
}

TEST(RecordStore, KeepsItsListWhenTheKeyIsGone) {
    LoadedStore loaded;
    SSHStore store(loaded.memory);
    loaded.memory.values.clear();
    EXPECT_EQ(loaded.printedBy([&] { store.load(); }), "");
    EXPECT_EQ(store.profiles(), threeProfiles());
    EXPECT_TRUE(loaded.memory.writtenKeys.empty());
}

TEST(RecordStore, PutsDamagedDataAsideBeforeItSeedsOverIt) {
    const std::string damaged = R"([{"id":"0A0B0C0D-0000-4000-8000-000000000001"}])";
    LoadedStore loaded;
    loaded.memory.values = {{std::string(kCategoriesKey), damaged},
                            {std::string(kSnippetsKey), "{"}};
    const std::string printed = loaded.printedBy([&] {
        EXPECT_EQ(CategoryStore(loaded.memory).categories(), std::vector{defaultCategory()});
        EXPECT_EQ(SnippetStore(loaded.memory).snippets(), defaultSnippets());
    });
    EXPECT_TRUE(
        printed.starts_with("Category load error: categories[0].name: required key is missing\n"
                            "Snippet load error: snippets: not valid JSON: "))
        << printed;
    EXPECT_EQ(loaded.memory.preserved, (std::vector<std::string>{damaged, "{"}));
    EXPECT_EQ(loaded.memory.values.find(kCategoriesKey)->second,
              encodeList<SSHCategory>({defaultCategory()}));
}

TEST(RecordStore, PutsDamagedDataAsideBeforeALaterSaveToo) {
    LoadedStore loaded;
    SSHStore store(loaded.memory);
    loaded.memory.values[std::string(kProfilesKey)] = "damaged";
    EXPECT_NE(loaded.printedBy([&] { store.load(); }), "");
    EXPECT_EQ(store.profiles(), threeProfiles());
    EXPECT_TRUE(loaded.memory.preserved.empty());

    loaded.memory.preservingFails = true;
    EXPECT_EQ(loaded.printedBy([&] { store.add(exampleProfile(14)); }),
              "Profile save error: nicht aufgehoben\n");
    EXPECT_EQ(loaded.memory.values.find(kProfilesKey)->second, "damaged");

    loaded.memory.preservingFails = false;
    store.save();
    store.save();
    EXPECT_EQ(loaded.memory.preserved, std::vector<std::string>{"damaged"});
    EXPECT_EQ(loaded.stored(), store.profiles());
}

TEST(RecordStore, NeverOverwritesWhatItCouldNotRead) {
    LoadedStore loaded;
    loaded.memory.readingFails = true;
    const std::string printed = loaded.printedBy([&] {
        SSHStore store(loaded.memory);
        EXPECT_EQ(store.profiles(), std::vector{sampleProfile()});
        store.add(exampleProfile(14));
    });
    EXPECT_EQ(printed, "Profile load error: gesperrt\n"
                       "Profile save error: kein Platz\nProfile save error: kein Platz\n");
    EXPECT_EQ(loaded.stored(), threeProfiles());
}

} // namespace korvan
