// SPDX-License-Identifier: MIT
#include "platform/Files.h"

#include "model/JsonPadding.h"
#include "support/TemporaryFolder.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace korvan {

namespace {

namespace fs = std::filesystem;

std::int64_t codeOf(const Result<>& result) { return result ? 0 : result.error().code; }

} // namespace

TEST(Files, ReadsWholeFilesWithRoomBehindTheirEnd) {
    const TemporaryFolder folder;
    for (const std::size_t size : {0U, 1U, 70'000U}) {
        const auto bytes = readFile(folder.file("daten", std::string(size, '\xff'))).value();
        EXPECT_EQ(bytes, std::string(size, '\xff'));
        EXPECT_GE(bytes.capacity() - bytes.size(), kJsonPadding);
    }
    EXPECT_FALSE(readFile("/proc/self/stat").value().empty()) << "its size is said to be 0";
}

TEST(Files, SaysInWordsWhyItCannotRead) {
    const TemporaryFolder folder;
    EXPECT_EQ(readFile(folder.path()).error().code, EISDIR);
    const fs::path missing = folder.path() / "fehlt.json";
    EXPECT_EQ(readFile(missing).error(),
              (Error{"POSIX", ENOENT,
                     "Die Datei konnte nicht gelesen werden: Datei oder Ordner nicht gefunden („" +
                         missing.string() + "“)."}));
}

TEST(Files, MakesAFileForItsOwnerAloneAndKeepsAnotherModeAndWhatSomebodyHasOpen) {
    const TemporaryFolder folder;
    const fs::path path = folder.path() / "neu";
    const mode_t before = ::umask(0);
    EXPECT_TRUE(writeFileAtomically(path, "alter Text"));
    ::umask(before);
    EXPECT_EQ(modeOf(path), 0600U);
    fs::permissions(path, fs::perms(0644));
    std::ifstream open(path);
    EXPECT_TRUE(writeFileAtomically(path, "neu"));
    EXPECT_EQ(textOf(path), "neu");
    EXPECT_EQ(modeOf(path), 0644U);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(open), {}), "alter Text");
    EXPECT_EQ(folder.entryCount(), 1);
}

TEST(Files, KeepsASymbolicLinkAndReplacesWhatItPointsTo) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "dort");
    const fs::path target = folder.path() / "dort" / "ziel";
    const fs::path link = folder.path() / "link";
    const fs::path linkToLink = folder.path() / "zweiter";
    fs::create_symlink("dort/ziel", link);
    fs::create_symlink(link, linkToLink);
    for (const std::string text : {"neu", "ersetzt"}) { // first the link leads nowhere
        EXPECT_TRUE(writeFileAtomically(linkToLink, text));
        EXPECT_EQ(textOf(target), text);
        EXPECT_TRUE(fs::is_symlink(link) && fs::is_symlink(linkToLink));
    }
    fs::create_symlink("kreis", folder.path() / "kreis");
    EXPECT_EQ(codeOf(writeFileAtomically(folder.path() / "kreis", "x")), ELOOP);
}

TEST(Files, LeavesEverythingAsItWasWhenItCannotWrite) {
    const TemporaryFolder folder;
    const fs::path pipe = folder.path() / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const fs::path file = folder.file("datei", "Text");
    const std::pair<fs::path, int> cases[] = {
        {folder.path() / "fehlt" / "x", ENOENT},
        {folder.path(), EISDIR},
        {pipe, EINVAL},
        {folder.path() / std::string(300, 'x'), ENAMETOOLONG}};
    for (const auto& [path, code] : cases)
        EXPECT_EQ(codeOf(writeFileAtomically(path, "x")), code) << path;
    EXPECT_NE(codeOf(writeFileAtomically("/proc/korvan", "x")), 0) << "nobody may write there";
    EXPECT_EQ(textOf(file), "Text");
    EXPECT_TRUE(fs::is_fifo(pipe));
    EXPECT_EQ(folder.entryCount(), 2);
}

} // namespace korvan
