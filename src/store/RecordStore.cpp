// SPDX-License-Identifier: MIT
#include "store/RecordStore.h"

#include "model/RecordList.h"
#include "model/SeedData.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <tuple>
#include <utility>

namespace korvan {

namespace {

using NewRecords = StoreKind::NewRecords;

constexpr StoreKind kProfiles{"ssh_profiles_v3", "profiles", "Profile", NewRecords::last};
constexpr StoreKind kCategories{"ssh_categories_v1", "categories", "Category", NewRecords::first};
constexpr StoreKind kSnippets{"ssh_snippets_v1", "snippets", "Snippet", NewRecords::first};

} // namespace

StoredLists::StoredLists(KeyValueStore& keyValueStore) {
    auto lists =
        keyValueStore.dataForKeys(std::array{kProfiles.key, kCategories.key, kSnippets.key});
    profiles = std::move(lists[0]);
    categories = std::move(lists[1]);
    snippets = std::move(lists[2]);
}

template <class... Stores>
void saveTogether(Stores&... stores) {
    std::vector<KeyValueStore::Value> values;
    (values.push_back(stores.value()), ...);
    KeyValueStore& keyValueStore = std::get<0>(std::tie(stores...)).m_keyValueStore;
    const auto saved = keyValueStore.setValues(std::move(values));
    if (!saved) (stores.printError("save", saved.error()), ...);
}

template <class Record>
RecordStore<Record>::RecordStore(KeyValueStore& keyValueStore, const StoreKind& kind,
                                 std::vector<Record> seed, Result<KeyValueStore::Data> stored)
    : m_keyValueStore(keyValueStore), m_kind(kind) {
    load(std::move(stored));
    if (!m_records.empty()) return;
    change(std::move(seed));
    std::vector<KeyValueStore::Value> examples(1, value());
    examples.front().isExample = true;
    if (const auto saved = m_keyValueStore.setValues(std::move(examples)); !saved)
        printError("save", saved.error());
}

template <class Record>
void RecordStore<Record>::load() {
    load(m_keyValueStore.dataForKey(m_kind.key));
}

template <class Record>
void RecordStore<Record>::load(Result<KeyValueStore::Data> stored) {
    if (!stored) return printError("load", stored.error());
    const std::optional<std::string>& json = *stored;
    if (!json) return;
    auto records = decodeList<Record>(*json, m_kind.listName, m_records.size());
    if (!records) {
        m_keyValueStore.preserve(m_kind.key);
        return printError("load", records.error());
    }
    change(std::move(*records));
}

template <class Record>
void RecordStore<Record>::save() {
    saveTogether(*this);
}

template <class Record>
void RecordStore<Record>::add(Record record) {
    const bool isFirst = m_kind.newRecords == NewRecords::first;
    m_records.insert(isFirst ? m_records.begin() : m_records.end(), std::move(record));
    notifyAndSave();
}

template <class Record>
void RecordStore<Record>::update(const Record& record) {
    const auto found = std::ranges::find(m_records, record.id, &Record::id);
    if (found == m_records.end()) return;
    *found = record;
    notifyAndSave();
}

template <class Record>
void RecordStore<Record>::remove(const Record& record) {
    const auto found = std::ranges::find(m_records, record);
    if (found == m_records.end()) return;
    m_records.erase(found);
    notifyAndSave();
}

template <class Record>
void RecordStore<Record>::replaceAll(std::vector<Record> records) {
    change(std::move(records));
    save();
}

template <class Record>
const Record* RecordStore<Record>::find(const Uuid& id) const {
    const auto found = std::ranges::find(m_records, id, &Record::id);
    return found == m_records.end() ? nullptr : &*found;
}

template <class Record>
void RecordStore<Record>::changeEach(const std::function<bool(Record&)>& change) {
    bool hasChanged = false;
    // By position: an observer may change the list during the loop.
    for (std::size_t i = 0; i < m_records.size(); ++i) {
        if (!change(m_records[i])) continue;
        hasChanged = true;
        notify();
    }
    if (hasChanged) save();
}

template <class Record>
void RecordStore<Record>::notifyAndSave() {
    notify();
    save();
}

template <class Record>
void RecordStore<Record>::change(std::vector<Record> records) {
    m_records = std::move(records);
    notify();
}

template <class Record>
KeyValueStore::Value RecordStore<Record>::value() const {
    return {m_kind.key, encodeList(m_records)};
}

template <class Record>
void RecordStore<Record>::notify() {
    ++m_revision;
    m_observers.notify();
}

template <class Record>
void RecordStore<Record>::printError(std::string_view action, const Error& error) const {
    const std::string line = std::string(m_kind.label) + " " + std::string(action) +
                             " error: " + error.localizedDescription;
    std::puts(line.c_str());
    std::fflush(stdout); // the line matters most when the program is about to be killed
}

template class RecordStore<SSHProfile>;
template class RecordStore<SSHCategory>;
template class RecordStore<CommandSnippet>;

SSHStore::SSHStore(KeyValueStore& keyValueStore)
    : SSHStore(keyValueStore, keyValueStore.dataForKey(kProfiles.key)) {}

SSHStore::SSHStore(KeyValueStore& keyValueStore, Result<KeyValueStore::Data> stored)
    : RecordStore(keyValueStore, kProfiles, {sampleProfile()}, std::move(stored)) {}

void SSHStore::clearCategory(const Uuid& categoryId) {
    changeEach([&](SSHProfile& profile) {
        if (profile.categoryId != categoryId) return false;
        profile.categoryId.reset();
        return true;
    });
}

CategoryStore::CategoryStore(KeyValueStore& keyValueStore)
    : CategoryStore(keyValueStore, keyValueStore.dataForKey(kCategories.key)) {}

CategoryStore::CategoryStore(KeyValueStore& keyValueStore, Result<KeyValueStore::Data> stored)
    : RecordStore(keyValueStore, kCategories, {defaultCategory()}, std::move(stored)) {}

SnippetStore::SnippetStore(KeyValueStore& keyValueStore)
    : SnippetStore(keyValueStore, keyValueStore.dataForKey(kSnippets.key)) {}

SnippetStore::SnippetStore(KeyValueStore& keyValueStore, Result<KeyValueStore::Data> stored)
    : RecordStore(keyValueStore, kSnippets, defaultSnippets(), std::move(stored)) {}

void loadAll(SSHStore& profiles, SnippetStore& snippets, CategoryStore& categories) {
    StoredLists stored(profiles.m_keyValueStore);
    profiles.load(std::move(stored.profiles));
    snippets.load(std::move(stored.snippets));
    categories.load(std::move(stored.categories));
}

void replaceAll(SSHStore& profiles, SnippetStore& snippets, CategoryStore& categories,
                KorvanBackup backup) {
    profiles.change(std::move(backup.profiles));
    snippets.change(std::move(backup.snippets));
    categories.change(std::move(backup.categories));
    saveTogether(profiles, snippets, categories);
}

} // namespace korvan
