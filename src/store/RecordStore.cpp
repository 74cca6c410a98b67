// SPDX-License-Identifier: MIT
#include "store/RecordStore.h"

#include "model/RecordList.h"
#include "model/SeedData.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <utility>

namespace korvan {

namespace {

using NewRecords = StoreKind::NewRecords;

constexpr StoreKind kProfiles{"ssh_profiles_v3", "profiles", "Profile", NewRecords::last};
constexpr StoreKind kCategories{"ssh_categories_v1", "categories", "Category", NewRecords::first};
constexpr StoreKind kSnippets{"ssh_snippets_v1", "snippets", "Snippet", NewRecords::first};

} // namespace

template <class Record>
RecordStore<Record>::RecordStore(KeyValueStore& keyValueStore, const StoreKind& kind,
                                 std::vector<Record> seed)
    : m_keyValueStore(keyValueStore), m_kind(kind) {
    load();
    if (m_records.empty()) replaceAll(std::move(seed));
}

template <class Record>
void RecordStore<Record>::load() {
    const auto data = m_keyValueStore.dataForKey(m_kind.key);
    if (!data) return printError("load", data.error());
    m_storedDataIsUndecodable = false;
    const std::optional<std::string>& json = *data;
    if (!json) return;
    auto records = decodeList<Record>(*json, m_kind.listName, m_records.size());
    if (!records) {
        m_storedDataIsUndecodable = true;
        return printError("load", records.error());
    }
    m_records = std::move(*records);
    notify();
}

template <class Record>
void RecordStore<Record>::save() {
    if (m_storedDataIsUndecodable) {
        if (const auto preserved = m_keyValueStore.preserve(m_kind.key); !preserved)
            return printError("save", preserved.error());
        m_storedDataIsUndecodable = false;
    }
    if (const auto saved = m_keyValueStore.setData(m_kind.key, encodeList(m_records)); !saved)
        printError("save", saved.error());
}

template <class Record>
void RecordStore<Record>::add(Record record) {
    const bool isFirst = m_kind.newRecords == NewRecords::first;
    m_records.insert(isFirst ? m_records.begin() : m_records.end(), std::move(record));
    commit();
}

template <class Record>
void RecordStore<Record>::update(const Record& record) {
    const auto found = std::ranges::find(m_records, record.id, &Record::id);
    if (found == m_records.end()) return;
    *found = record;
    commit();
}

template <class Record>
void RecordStore<Record>::remove(const Record& record) {
    const auto found = std::ranges::find(m_records, record);
    if (found == m_records.end()) return;
    m_records.erase(found);
    commit();
}

template <class Record>
void RecordStore<Record>::replaceAll(std::vector<Record> records) {
    m_records = std::move(records);
    commit();
}

template <class Record>
const Record* RecordStore<Record>::find(const Uuid& id) const {
    const auto found = std::ranges::find(m_records, id, &Record::id);
    return found == m_records.end() ? nullptr : &*found;
}

template <class Record>
void RecordStore<Record>::changeEach(const std::function<bool(Record&)>& change) {
    bool hasChanged = false;
    // By position: an observer may change the list while it is walked.
    for (std::size_t i = 0; i < m_records.size(); ++i) {
        if (!change(m_records[i])) continue;
        hasChanged = true;
        notify();
    }
    if (hasChanged) save();
}

template <class Record>
void RecordStore<Record>::commit() {
    notify();
    save();
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
    : RecordStore(keyValueStore, kProfiles, {sampleProfile()}) {}

void SSHStore::clearCategory(const Uuid& categoryId) {
    changeEach([&](SSHProfile& profile) {
        if (profile.categoryId != categoryId) return false;
        profile.categoryId.reset();
        return true;
    });
}

CategoryStore::CategoryStore(KeyValueStore& keyValueStore)
    : RecordStore(keyValueStore, kCategories, {defaultCategory()}) {}

SnippetStore::SnippetStore(KeyValueStore& keyValueStore)
    : RecordStore(keyValueStore, kSnippets, defaultSnippets()) {}

} // namespace korvan
