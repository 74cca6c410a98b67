// SPDX-License-Identifier: MIT
#pragma once

#include "model/CommandSnippet.h"
#include "model/KorvanBackup.h"
#include "model/SSHCategory.h"
#include "model/SSHProfile.h"
#include "store/KeyValueStore.h"
#include "store/ObserverList.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace korvan {

class SSHStore;
class CategoryStore;
class SnippetStore;

// What tells one store from another.
struct StoreKind {
    std::string_view key;      // of the stored list
    std::string_view listName; // of the list in decoding errors
    std::string_view label;    // begins the lines that are printed on failure
    enum class NewRecords { first, last } newRecords;
};

// What is stored for the three stores, all as it was at one moment.
struct StoredLists {
    explicit StoredLists(KeyValueStore& keyValueStore);

    Result<KeyValueStore::Data> profiles, categories, snippets;
};

// One ordered list of records, loaded on construction and written through on every change. The
// key-value store must outlive it.
//
// Every change takes the same three steps in the same order: the list changes, the observers are
// called, the whole list is written. When the write fails, the list keeps the change, one line is
// printed to standard output, and the next write that succeeds writes everything.
//
// Data that could not be decoded is put aside when it is overwritten; data that could not be read
// is not overwritten at all (see KeyValueStore). Nothing here throws, and nothing stops the
// program.
template <class Record>
class RecordStore {
public:
    RecordStore(const RecordStore&) = delete;
    RecordStore& operator=(const RecordStore&) = delete;

    // Reads the stored list. Leaves the list unchanged when nothing is stored. Also when the stored
    // list cannot be read or decoded, after printing one line.
    void load();

    // The same for a list that has been read already.
    void load(Result<KeyValueStore::Data> stored);

    // Writes the whole list. Prints one line when that fails.
    void save();

    void add(Record record);

    // Replaces the first record with the same id; does nothing when there is none.
    void update(const Record& record);

    // Removes the first record that is equal in every field; does nothing when there is none.
    void remove(const Record& record);

    void replaceAll(std::vector<Record> records);

    // The first record with this id, or null. Valid until the next change.
    [[nodiscard]] const Record* find(const Uuid& id) const;

    // A number that grows with every change of the list.
    [[nodiscard]] std::uint64_t revision() const { return m_revision; }

    // Calls `observer` after each change of the list, even when the new list equals the old one.
    [[nodiscard]] Subscription observe(std::function<void()> observer) {
        return m_observers.observe(std::move(observer));
    }

protected:
    // Loads the list. If it is empty then, fills it with `seed` and saves it.
    RecordStore(KeyValueStore& keyValueStore, const StoreKind& kind, std::vector<Record> seed,
                Result<KeyValueStore::Data> stored);
    ~RecordStore() = default;

    [[nodiscard]] const std::vector<Record>& records() const { return m_records; }

    // Calls `change` for each record in turn, and the observers each time it returns true. Writes
    // the list once at the end, if any record has changed.
    void changeEach(const std::function<bool(Record&)>& change);

private:
    void notifyAndSave();
    void change(std::vector<Record> records); // notifies, but does not write
    void notify();
    [[nodiscard]] KeyValueStore::Value value() const;
    void printError(std::string_view action, const Error& error) const;

    friend void loadAll(SSHStore& profiles, SnippetStore& snippets, CategoryStore& categories);
    friend void replaceAll(SSHStore& profiles, SnippetStore& snippets, CategoryStore& categories,
                           KorvanBackup backup);
    // Writes the lists of `stores` in one transaction.
    template <class... Stores>
    friend void saveTogether(Stores&... stores);

    KeyValueStore& m_keyValueStore;
    const StoreKind& m_kind;
    std::vector<Record> m_records;
    ObserverList m_observers;
    std::uint64_t m_revision = 0;
};

extern template class RecordStore<SSHProfile>;
extern template class RecordStore<SSHCategory>;
extern template class RecordStore<CommandSnippet>;

// The connection profiles. New ones come last.
class SSHStore final : public RecordStore<SSHProfile> {
public:
    explicit SSHStore(KeyValueStore& keyValueStore);
    SSHStore(KeyValueStore& keyValueStore, Result<KeyValueStore::Data> stored);

    [[nodiscard]] const std::vector<SSHProfile>& profiles() const { return records(); }

    // Takes every profile out of the category. Saves once, and only if there was one in it.
    void clearCategory(const Uuid& categoryId);
};

// The user's categories. New ones come first.
class CategoryStore final : public RecordStore<SSHCategory> {
public:
    explicit CategoryStore(KeyValueStore& keyValueStore);
    CategoryStore(KeyValueStore& keyValueStore, Result<KeyValueStore::Data> stored);

    [[nodiscard]] const std::vector<SSHCategory>& categories() const { return records(); }
};

// The command database. New commands come first.
class SnippetStore final : public RecordStore<CommandSnippet> {
public:
    explicit SnippetStore(KeyValueStore& keyValueStore);
    SnippetStore(KeyValueStore& keyValueStore, Result<KeyValueStore::Data> stored);

    [[nodiscard]] const std::vector<CommandSnippet>& snippets() const { return records(); }
};

// Loads each store as its `load` does, from lists that were stored together at one moment. The
// stores must share one key-value store, as in replaceAll.
void loadAll(SSHStore& profiles, SnippetStore& snippets, CategoryStore& categories);

// Replaces each list by that of `backup` and calls its observers, in this order; then writes all
// three in one transaction. When that fails, each list keeps the change and prints its line.
void replaceAll(SSHStore& profiles, SnippetStore& snippets, CategoryStore& categories,
                KorvanBackup backup);

} // namespace korvan
