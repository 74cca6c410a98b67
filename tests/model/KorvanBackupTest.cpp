// SPDX-License-Identifier: MIT
#include "model/KorvanBackup.h"

#include "model/SeedData.h"
#include "support/Examples.h"

#include <gtest/gtest.h>

namespace korvan {

namespace {

// What the example is written as.
const std::string kText = R"({
  "categories" : [
    {
      "id" : "0A0B0C0D-0000-4000-8000-000000000002",
      "name" : "Büro"
    }
  ],
  "createdAtISO8601" : "2001-09-09T01:46:40Z",
  "format" : "lumera.Korvan.backup",
  "profiles" : [
    {
      "categoryId" : "0A0B0C0D-0000-4000-8000-000000000002",
      "extraArgs" : "-o StrictHostKeyChecking=no",
      "host" : "10.0.0.7",
      "id" : "0A0B0C0D-0000-4000-8000-000000000001",
      "identityFile" : "\/Users\/pi\/.ssh\/id_ed25519",
      "name" : "Drucker \"Süd\"",
      "password" : "geheim",
      "port" : 2222,
      "user" : "pi"
    }
  ],
  "snippets" : [
    {
      "commandTemplate" : "ping -c 4 {HOST}",
      "hint" : "4 Pakete senden",
      "id" : "0A0B0C0D-0000-4000-8000-000000000003",
      "title" : "Ping Host"
    }
  ],
  "version" : 2
})";

// The example as the older version wrote it.
std::string olderText() {
    const std::string text = "{" + kText.substr(kText.find("\"createdAt"));
    return replaced(text, "\"version\" : 2", "\"version\" : 1");
}

std::int64_t errorCode(const std::string& bytes) {
    const auto backup = readBackup(bytes, {});
    if (backup) return 0;
    EXPECT_EQ(backup.error().domain, "Import");
    EXPECT_EQ(backup.error().localizedDescription,
              backup.error().code == 1
                  ? "Unbekanntes Backup-Format oder falsche Version."
                  : "Backup konnte nicht gelesen werden (weder V1 noch V2). Datei ist evtl. "
                    "beschädigt.");
    return backup.error().code;
}

} // namespace

TEST(KorvanBackup, IsWrittenPrettyWithSortedKeysAndReadAgain) {
    EXPECT_EQ(writeBackup(exampleBackup()), kText);
    EXPECT_EQ(writeBackup(readBackup(kText, {}).value()), kText);
    const std::string empty = writeBackup(makeBackup({}, {}, {}, {}));
    EXPECT_EQ(writeBackup(readBackup(empty, {}).value()), empty);
}

TEST(KorvanBackup, WritesItsTimeInUtcToTheWholeSecondThatHasBegun) {
    using namespace std::chrono;
    ::setenv("TZ", "Asia/Tokyo", 1); // another time than UTC all year
    ::tzset();
    const auto textOf = [](milliseconds time) {
        return makeBackup({}, {}, {}, system_clock::time_point(time)).createdAtISO8601;
    };
    EXPECT_EQ(textOf(999ms), "1970-01-01T00:00:00Z");
    EXPECT_EQ(textOf(-1ms), "1969-12-31T23:59:59Z");
}

TEST(KorvanBackup, TellsAnotherFormatFromADamagedFile) {
    const std::tuple<std::string, std::string, std::int64_t> cases[] = {
        {"\"version\" : 2", "\"version\" : 3", 1},
        {"\"version\" : 2", "\"version\" : 1", 1},
        {"lumera.Korvan", "lumera.korvan", 1},
        {"\"categories\"", "\"kategorien\"", 1}, // reads as the older layout, of the wrong version
        {"\"name\" : \"Büro\"", "\"name\" : null", 1}, // likewise: the older one has no categories
        {"\"port\" : 2222,", "", 2},
        {"\"version\" : 2", "\"version\" : \"2\"", 2},
        {"\"createdAtISO8601\"", "\"createdAt\"", 2},
        {"\"version\" : 2", "\"version\" : 2,", 2},
        {"2001-09-09T01:46:40Z", "irgendwann", 0},
        {"\"version\" : 2", "\"version\" : 2.0, \"extra\" : [1.5, null]", 0},
    };
    for (const auto& [part, by, code] : cases)
        EXPECT_EQ(errorCode(replaced(kText, part, by)), code) << by;
    for (const std::string bytes : {"", "Kein JSON", "[]", "null", "\xff\xfe"})
        EXPECT_EQ(errorCode(bytes), 2) << bytes;
}

TEST(KorvanBackup, GivesTheOlderVersionTheCurrentCategories) {
    const std::vector<SSHCategory> current = {exampleCategory(8), exampleCategory(9)};
    KorvanBackup backup = exampleBackup();
    backup.categories = current;
    EXPECT_EQ(writeBackup(readBackup(olderText(), current).value()), writeBackup(backup));
    EXPECT_EQ(readBackup(olderText(), {}).value().categories, std::vector{defaultCategory()});
    EXPECT_EQ(errorCode(replaced(olderText(), "lumera", "lumen")), 1);
    for (const std::string version : {"0", "2", "-1"})
        EXPECT_EQ(errorCode(replaced(olderText(), " 1", " " + version)), 1) << version;
}

} // namespace korvan
