#include "macro/whole_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace kestrane {
namespace {

// Pipes and devices must not hold the program up.
constexpr int kFlags = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
constexpr mode_t kReadWriteForAll = 0666;  // less the process's mask
constexpr mode_t kReadWriteForOwner = 0600;

std::string Reason(int error) { return std::strerror(error); }

class Descriptor {
  public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool open() const { return fd_ >= 0; }
    int get() const { return fd_; }
    int Close() {
        const int fd = fd_;
        fd_ = -1;
        return ::close(fd);
    }

  private:
    int fd_;
};

// Some file systems tell of a full disk only when it is asked for or closed.
int WriteAll(Descriptor& file, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = ::write(file.get(), content.data(), content.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return written < 0 ? errno : EIO;
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    if (::fsync(file.get()) != 0 && errno != EINVAL && errno != EROFS) return errno;
    return file.Close() == 0 ? 0 : errno;
}

// A device or a pipe can't be replaced, a file with several names or in a folder that takes no new
// file must not be.
std::optional<std::string> WriteInPlace(const std::string& path, std::string_view content) {
    Descriptor file(::open(path.c_str(), O_WRONLY | O_TRUNC | kFlags));
    if (!file.open()) return Reason(errno);
    const int error = WriteAll(file, content);
    if (error != 0) return Reason(error);
    return {};
}

// A link stays a link: what it points to is replaced, or made.
std::string Target(const std::string& path) {
    std::filesystem::path target = path;
    constexpr int kMostLinks = 40;
    for (int i = 0; i < kMostLinks; ++i) {
        std::error_code error;
        const auto next = std::filesystem::read_symlink(target, error);
        if (error) break;
        target = next.is_absolute() ? next : target.parent_path() / next;
    }
    return target.string();
}

// A file beside `path` that no other program is writing; its name goes to `name`. One that an
// interrupted save has left behind is taken again, so that they never pile up.
int CreateBeside(const std::string& path, mode_t mode, std::string& name) {
    constexpr int kMostAtOnce = 100;
    int fd = -1;
    for (int attempt = 0; attempt < kMostAtOnce; ++attempt) {
        name = path + ".new" + (attempt == 0 ? "" : std::to_string(attempt));
        fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | kFlags, mode);
        if (fd < 0 && (errno == EACCES || errno == ELOOP) && ::access(name.c_str(), F_OK) == 0) {
            continue;  // somebody else's
        }
        if (fd < 0) return fd;
        struct stat opened {};
        struct stat named {};
        // Another program may have put it in the place of its own file in between.
        if (::flock(fd, LOCK_EX | LOCK_NB) == 0 && ::fstat(fd, &opened) == 0 &&
            ::lstat(name.c_str(), &named) == 0 && opened.st_ino == named.st_ino &&
            ::ftruncate(fd, 0) == 0) {
            return fd;
        }
        ::close(fd);
    }
    errno = EBUSY;
    return -1;
}

bool IsOneOfSeveralNames(const struct stat& file) { return file.st_nlink > 1; }

std::string FolderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

}  // namespace

FileContent ReadWholeFile(const std::string& path) {
    FileContent result;
    const Descriptor file(::open(path.c_str(), O_RDONLY | kFlags));
    if (!file.open()) return {{}, Reason(errno)};
    char part[16384];
    while (true) {
        const ssize_t count = ::read(file.get(), part, sizeof part);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) result.error = Reason(errno);
        if (count <= 0) return result;
        result.content.append(part, static_cast<std::size_t>(count));
        if (result.content.size() > kLargestFile) {
            result.error = Reason(EFBIG);
            return result;
        }
    }
}

std::optional<std::string> ReplaceFile(const std::string& path, std::string_view content,
                                       FileAccess access) {
    const std::string target = Target(path);
    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && S_ISDIR(old.st_mode)) return Reason(EISDIR);
    if (exists && !S_ISREG(old.st_mode)) return WriteInPlace(target, content);
    // The folder may let go a file that itself may not be written.
    if (exists && ::access(target.c_str(), W_OK) != 0) return Reason(errno);
    const bool owner_only = access == FileAccess::kOwnerOnly;
    if (exists && owner_only && ::chmod(target.c_str(), kReadWriteForOwner) != 0) {
        return Reason(errno);
    }
    if (exists && IsOneOfSeveralNames(old)) return WriteInPlace(target, content);

    std::string beside;
    const mode_t mode = exists || owner_only ? kReadWriteForOwner : kReadWriteForAll;
    Descriptor file(CreateBeside(target, mode, beside));
    if (!file.open()) return exists ? WriteInPlace(target, content) : Reason(errno);
    int error = 0;
    const mode_t wanted = owner_only ? kReadWriteForOwner : old.st_mode & 07777;
    if ((exists || owner_only) && ::fchmod(file.get(), wanted) != 0) error = errno;
    if (error == 0) error = WriteAll(file, content);
    if (error == 0 && ::rename(beside.c_str(), target.c_str()) != 0) error = errno;
    if (error == 0) return {};
    ::unlink(beside.c_str());
    return Reason(error);
}

std::optional<std::string> WhyNotWritable(const std::string& path) {
    const std::string target = Target(path);
    struct stat old {};
    if (::stat(target.c_str(), &old) == 0) {
        if (S_ISDIR(old.st_mode)) return Reason(EISDIR);
        return ::access(target.c_str(), W_OK) == 0 ? std::nullopt : std::optional(Reason(errno));
    }
    if (errno != ENOENT) return Reason(errno);
    if (::access(FolderOf(target).c_str(), W_OK | X_OK) != 0) return Reason(errno);
    return {};
}

}  // namespace kestrane
