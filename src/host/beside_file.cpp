#include "host/beside_file.h"

#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

namespace kestrane {
namespace {

// More saves than these at once in one folder don't come.
constexpr int kMostNames = 100;

bool Lock(const Descriptor& file) { return ::flock(file.get(), LOCK_EX | LOCK_NB) == 0; }

// Whether the name still stands for this file; another save may have taken it over since.
bool Bears(const Descriptor& file, const std::string& name) {
    struct stat opened {};
    struct stat named {};
    return ::fstat(file.get(), &opened) == 0 && ::lstat(name.c_str(), &named) == 0 &&
           opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

}  // namespace

int Descriptor::Close() {
    if (fd_ < 0) return 0;
    const int error = ::close(fd_) == 0 ? 0 : errno;
    fd_ = -1;
    return error;
}

// Some file systems tell of a full disk only when it is asked for.
int WriteAll(Descriptor& file, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = ::write(file.get(), content.data(), content.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return written < 0 ? errno : EIO;
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    if (::fsync(file.get()) != 0 && errno != EINVAL && errno != EROFS) return errno;
    return file.Close();
}

std::string FolderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

BesideFile::BesideFile(const std::string& folder, mode_t mode) {
    for (int number = 0; number < kMostNames; ++number) {
        name_ = folder + ".kestrane-save-" + std::to_string(number);
        if (Create(mode)) return;
        if (error_ != EEXIST) return;
        if (RemoveLeftover() && Create(mode)) return;
    }
}

bool BesideFile::Create(mode_t mode) {
    file_.Reset(::open(name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | kOpenFlags, mode));
    error_ = file_.open() ? 0 : errno;
    if (!file_.open()) return false;
    if (Lock(file_) && Bears(file_, name_)) return true;
    file_.Reset(-1);
    error_ = EEXIST;
    return false;
}

bool BesideFile::RemoveLeftover() const {
    const Descriptor old(::open(name_.c_str(), O_RDONLY | O_NOFOLLOW | kOpenFlags));
    return old.open() && Lock(old) && Bears(old, name_) && ::unlink(name_.c_str()) == 0;
}

int BesideFile::WriteAndBecome(const std::string& target, std::string_view content) {
    // The lock goes with the descriptor, which stays open until the name is given up.
    Descriptor held(::fcntl(file_.get(), F_DUPFD_CLOEXEC, 0));
    int error = WriteAll(file_, content);
    if (error == 0 && ::rename(name_.c_str(), target.c_str()) != 0) error = errno;
    if (error != 0) ::unlink(name_.c_str());
    file_.Reset(-1);
    return error;
}

void BesideFile::Drop() {
    if (!file_.open()) return;
    ::unlink(name_.c_str());
    file_.Reset(-1);
}

}  // namespace kestrane
