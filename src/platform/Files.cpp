// SPDX-License-Identifier: MIT
#include "platform/Files.h"

#include "model/JsonPadding.h"
#include "model/Uuid.h"

#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace korvan {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kCannotRead = "Die Datei konnte nicht gelesen werden";
constexpr std::string_view kCannotWrite = "Die Datei konnte nicht geschrieben werden";
constexpr std::string_view kCannotCreateFolder = "Der Ordner konnte nicht angelegt werden";

// In German for the codes that a user can do something about. The C library's own texts are in the
// language of a locale that the program does not choose.
std::string reasonFor(int code) {
    switch (code) {
    case EACCES:
    case EPERM: return "Keine Berechtigung";
    case ENOENT: return "Datei oder Ordner nicht gefunden";
    case ENOTDIR: return "Ein Teil des Pfades ist kein Ordner";
    case EISDIR: return "Das ist ein Ordner";
    case EINVAL: return "Das ist keine gewöhnliche Datei";
    case ENOSPC: return "Auf dem Datenträger ist kein Platz mehr";
    case EDQUOT: return "Das Speicherkontingent ist erschöpft";
    case EROFS: return "Der Datenträger ist schreibgeschützt";
    case EFBIG: return "Die Datei ist zu groß";
    case EIO: return "Ein-/Ausgabefehler";
    case ENAMETOOLONG: return "Der Dateiname ist zu lang";
    case ELOOP: return "Zu viele symbolische Verknüpfungen";
    case EMFILE:
    case ENFILE: return "Zu viele offene Dateien";
    case ENOMEM: return "Nicht genug Speicher";
    default: return std::strerror(code);
    }
}

std::unexpected<Error> failureNow(std::string_view what, const fs::path& path) {
    return std::unexpected(posixError(errno, what, path));
}

// Closes its descriptor when it ends.
class Descriptor final {
public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor() {
        if (isOpen()) ::close(m_number);
    }

    [[nodiscard]] bool isOpen() const { return m_number >= 0; }
    [[nodiscard]] int number() const { return m_number; }

    // False on failure: some file systems report a full disk only now.
    bool close() { return ::close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number;
};

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// Makes a rename in `folder` durable. Succeeds where the file system has no way to do that.
bool syncFolder(const fs::path& folder) {
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!descriptor.isOpen()) return errno == EACCES; // may be written to but not read
    return ::fsync(descriptor.number()) == 0 || errno == EINVAL || errno == ENOTSUP;
}

fs::path folderOf(const fs::path& path) {
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

// Where `path` leads through symbolic links, even when there is no file yet. The system reports a
// circle of links later.
fs::path targetOf(const fs::path& path) {
    constexpr int mostLinks = 40; // as many as the system follows
    fs::path target = path;
    std::error_code error;
    for (int links = 0; links < mostLinks && fs::is_symlink(target, error); ++links)
        target = folderOf(target) / fs::read_symlink(target, error);
    return target;
}

// A file beside its target, which replaces the target or disappears. It gets a name only when it is
// whole, so nothing stays behind when the program is killed while it writes. On a file system
// without nameless files it has a name from the start.
class TemporaryFile final {
public:
    explicit TemporaryFile(const fs::path& target)
        : m_path((folderOf(target) / ".korvan-XXXXXX").string()),
          m_descriptor(::open(folderOf(target).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600)) {
        if (m_descriptor.isOpen() && ::access(nameless().c_str(), F_OK) == 0) return;
        m_descriptor = Descriptor(::mkostemp(m_path.data(), O_CLOEXEC));
        m_hasName = m_descriptor.isOpen();
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (m_hasName) ::unlink(m_path.c_str());
    }

    bool write(std::string_view bytes, std::optional<mode_t> mode) {
        return m_descriptor.isOpen() && (!mode || ::fchmod(m_descriptor.number(), *mode) == 0) &&
               writeAll(m_descriptor.number(), bytes) && ::fsync(m_descriptor.number()) == 0;
    }

    bool replace(const fs::path& target) {
        if (!m_hasName && !giveName()) return false;
        if (!m_descriptor.close() || ::rename(m_path.c_str(), target.c_str()) != 0) return false;
        m_hasName = false;
        return true;
    }

private:
    [[nodiscard]] std::string nameless() const {
        return "/proc/self/fd/" + std::to_string(m_descriptor.number());
    }

    bool giveName() {
        m_path = fs::path(m_path).replace_filename(".korvan-" + Uuid::random().text());
        m_hasName = ::linkat(AT_FDCWD, nameless().c_str(), AT_FDCWD, m_path.c_str(),
                             AT_SYMLINK_FOLLOW) == 0;
        return m_hasName;
    }

    std::string m_path;
    Descriptor m_descriptor;
    bool m_hasName = false;
};

} // namespace

Error posixError(int code, std::string_view what, const fs::path& path) {
    return {"POSIX", code,
            std::string(what) + ": " + reasonFor(code) + " („" + path.string() + "“)."};
}

Result<std::string> readFile(const fs::path& path) {
    // O_NONBLOCK: otherwise opening a pipe waits until somebody writes into it.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status{};
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0)
        return failureNow(kCannotRead, path);
    if (!S_ISREG(status.st_mode))
        return std::unexpected(
            posixError(S_ISDIR(status.st_mode) ? EISDIR : EINVAL, kCannotRead, path));

    std::string bytes;
    std::size_t expected = static_cast<std::size_t>(status.st_size);
    std::size_t length = 0;
    while (true) {
        // One byte more than expected, so that the end is seen without growing again.
        reserveForJson(bytes, expected + 1);
        bytes.resize(expected + 1);
        const ssize_t count = ::read(file.number(), bytes.data() + length, bytes.size() - length);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return failureNow(kCannotRead, path);
        if (count == 0) break;
        length += static_cast<std::size_t>(count);
        if (length == bytes.size())
            expected = 2 * length + 4096; // the file grows, or its size is not known
    }
    bytes.resize(length);
    return bytes;
}

Result<> writeFileAtomically(const fs::path& path, std::string_view bytes) {
    const fs::path target = targetOf(path);
    std::optional<mode_t> mode;
    struct stat status{};
    if (::stat(target.c_str(), &status) == 0) {
        if (!S_ISREG(status.st_mode))
            return std::unexpected(
                posixError(S_ISDIR(status.st_mode) ? EISDIR : EINVAL, kCannotWrite, path));
        mode = status.st_mode & 07777;
    } else if (errno != ENOENT) {
        return failureNow(kCannotWrite, path);
    }

    TemporaryFile temporary(target);
    if (!temporary.write(bytes, mode) || !temporary.replace(target) ||
        !syncFolder(folderOf(target)))
        return failureNow(kCannotWrite, path);
    return {};
}

Result<> createFolder(const fs::path& path) {
    struct stat status{};
    if (::stat(path.c_str(), &status) == 0) {
        if (S_ISDIR(status.st_mode)) return {};
        return std::unexpected(posixError(ENOTDIR, kCannotCreateFolder, path));
    }
    const fs::path parent = folderOf(path);
    if (parent != path)
        if (auto created = createFolder(parent); !created) return created;
    // Another process may have been quicker.
    if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST)
        return failureNow(kCannotCreateFolder, path);
    if (!syncFolder(parent)) return failureNow(kCannotCreateFolder, path);
    return {};
}

} // namespace korvan
