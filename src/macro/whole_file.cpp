#include "macro/whole_file.h"

#include <fcntl.h>
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

// A device or a pipe is written as it is: it can't be replaced.
std::optional<std::string> WriteInPlace(const std::string& path, std::string_view content) {
    Descriptor file(::open(path.c_str(), O_WRONLY | kFlags));
    if (!file.open()) return Reason(errno);
    const int error = WriteAll(file, content);
    if (error != 0) return Reason(error);
    return {};
}

// A link stays a link: what it points to is replaced.
std::string Target(const std::string& path) {
    std::error_code error;
    const auto target = std::filesystem::canonical(path, error);
    return error ? path : target.string();
}

// A new file beside `path` that no other program has; its name goes to `name`.
int CreateBeside(const std::string& path, mode_t mode, std::string& name) {
    for (int attempt = 0;; ++attempt) {
        name = path + ".new" + std::to_string(attempt);
        const int fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | kFlags, mode);
        if (fd >= 0 || errno != EEXIST || attempt == 99) return fd;
    }
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

std::optional<std::string> ReplaceFile(const std::string& path, std::string_view content) {
    const std::string target = Target(path);
    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && S_ISDIR(old.st_mode)) return Reason(EISDIR);
    if (exists && !S_ISREG(old.st_mode)) return WriteInPlace(target, content);
    // The folder may let go a file that itself may not be written.
    if (exists && ::access(target.c_str(), W_OK) != 0) return Reason(errno);

    std::string beside;
    Descriptor file(CreateBeside(target, kReadWriteForAll, beside));
    if (!file.open()) return Reason(errno);
    int error = 0;
    if (exists && ::fchmod(file.get(), old.st_mode & 07777) != 0) error = errno;
    if (error == 0) error = WriteAll(file, content);
    if (error == 0 && ::rename(beside.c_str(), target.c_str()) != 0) error = errno;
    if (error == 0) return {};
    ::unlink(beside.c_str());
    return Reason(error);
}

}  // namespace kestrane
