#include "host/disk.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "host/beside_file.h"
#include "host/descriptor.h"

namespace kestrane {
namespace {

constexpr mode_t kReadWriteForAll = 0666;  // less the process's mask
constexpr mode_t kOwnerOnly = 0700;        // of an old file's mode, what stays for secrets

using Reason = std::optional<std::string>;

Reason ReasonOf(int error) {
    if (error == 0) return {};
    return std::strerror(error);
}

// What the name stands for: an old file, or the place for a new one.
struct Target {
    std::string path;
    bool exists = false;
    struct stat status {};

    bool IsFolder() const { return exists && S_ISDIR(status.st_mode); }
    // Pipes and devices can't be replaced.
    bool IsFile() const { return exists && S_ISREG(status.st_mode); }
};

// 0, or why the path can't stand for a file. A link that leads nowhere is a name for what it
// points to, so it is followed by hand.
int Resolve(std::string path, Target& target) {
    constexpr int kMostLinks = 40;  // as the kernel's own limit
    for (int links = 0; links <= kMostLinks; ++links) {
        target.path = path;
        target.exists = ::stat(path.c_str(), &target.status) == 0;
        if (!target.exists && errno != ENOENT) return errno;
        // The link of /dev/stdout to a pipe has no name that could be followed.
        if (target.exists && !target.IsFile() && !target.IsFolder()) return 0;
        char link[4096];
        const ssize_t size = ::readlink(path.c_str(), link, sizeof link);
        if (size < 0) return target.IsFolder() ? EISDIR : 0;
        const std::string to(link, static_cast<std::size_t>(size));
        path = to.starts_with('/') ? to : FolderOf(path) + to;
    }
    return ELOOP;
}

int Access(const std::string& path, int mode) {
    return ::faccessat(AT_FDCWD, path.c_str(), mode, AT_EACCESS) == 0 ? 0 : errno;
}

// Room for a longer file is taken first: a full disk then stops this before the first byte.
int MakeRoom(const Descriptor& file, off_t old_size, std::size_t size) {
    if (static_cast<off_t>(size) <= old_size) return 0;
    const int error = ::posix_fallocate(file.get(), 0, static_cast<off_t>(size));
    if (error == 0 || error == EINVAL || error == EOPNOTSUPP) return 0;
    return ::ftruncate(file.get(), old_size) == 0 ? error : errno;
}

// Over the old bytes: for pipes and devices, and where no file can be put in the place of this.
int WriteInPlace(const Target& target, std::string_view content, FileStore::Readers readers) {
    Descriptor file(::open(target.path.c_str(), O_WRONLY | kOpenFlags));
    if (!file.open()) return errno;
    if (!target.IsFile()) return WriteAll(file, content);
    const mode_t mode = target.status.st_mode & 07777;
    if (readers == FileStore::Readers::kOwner && (mode & 0077) != 0 &&
        ::fchmod(file.get(), mode & kOwnerOnly) != 0) {
        return errno;
    }
    int error = MakeRoom(file, target.status.st_size, content.size());
    if (error == 0 && ::ftruncate(file.get(), static_cast<off_t>(content.size())) != 0) {
        error = errno;
    }
    return error != 0 ? error : WriteAll(file, content);
}

// Takes over whose the old file is and who may use it. False if it can't.
bool TakeOver(const Descriptor& file, const struct stat& old, FileStore::Readers readers) {
    struct stat now {};
    if (::fstat(file.get(), &now) != 0) return false;
    const bool same_owner = now.st_uid == old.st_uid && now.st_gid == old.st_gid;
    if (!same_owner && ::fchown(file.get(), old.st_uid, old.st_gid) != 0) return false;
    const mode_t mode = old.st_mode & 07777;
    const bool secret = readers == FileStore::Readers::kOwner;
    return ::fchmod(file.get(), secret ? mode & kOwnerOnly : mode) == 0;
}

int ReplaceTarget(const Target& target, std::string_view content, FileStore::Readers readers) {
    if (target.exists && Access(target.path, W_OK) != 0) return errno;
    const bool many_names = target.exists && target.status.st_nlink > 1;
    if (target.exists && (!target.IsFile() || many_names)) {
        return WriteInPlace(target, content, readers);
    }
    const bool secret = target.exists || readers == FileStore::Readers::kOwner;
    BesideFile beside(FolderOf(target.path), secret ? 0600 : kReadWriteForAll);
    if (!beside.open() && !target.exists) return beside.error();
    if (!beside.open() || (target.exists && !TakeOver(beside.file(), target.status, readers))) {
        beside.Drop();
        return WriteInPlace(target, content, readers);
    }
    return beside.WriteAndBecome(target.path, content);
}

}  // namespace

FileStore::Content Disk::Read(const std::string& path) {
    Content result;
    const Descriptor file(::open(path.c_str(), O_RDONLY | kOpenFlags));
    if (!file.open()) return {{}, ReasonOf(errno)};
    char part[16384];
    while (true) {
        const ssize_t count = ::read(file.get(), part, sizeof part);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) result.error = ReasonOf(errno);
        if (count <= 0) return result;
        result.bytes.append(part, static_cast<std::size_t>(count));
        if (result.bytes.size() > kLargestFile) {
            result.error = ReasonOf(EFBIG);
            return result;
        }
    }
}

std::optional<std::string> Disk::Replace(const std::string& path, std::string_view content,
                                         Readers readers) {
    Target target;
    const int error = Resolve(path, target);
    return ReasonOf(error != 0 ? error : ReplaceTarget(target, content, readers));
}

std::optional<std::string> Disk::WhyNotWritable(const std::string& path) {
    Target target;
    if (const int error = Resolve(path, target); error != 0) return ReasonOf(error);
    if (target.exists) return ReasonOf(Access(target.path, W_OK));
    if (target.path.empty()) return ReasonOf(ENOENT);
    if (target.path.back() == '/') return ReasonOf(EISDIR);
    return ReasonOf(Access(FolderOf(target.path) + ".", W_OK | X_OK));
}

std::optional<std::string> Disk::MakeFolder(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (error) return error.message();
    if (!std::filesystem::is_directory(path, error)) return ReasonOf(ENOTDIR);
    return ReasonOf(Access(path, W_OK | X_OK));
}

}  // namespace kestrane
