#pragma once

// A file descriptor that is closed at its end, and how it is written.

#include <fcntl.h>

#include <string_view>

namespace kestrane {

// Pipes and devices must not hold the program up.
inline constexpr int kOpenFlags = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;

class Descriptor {
  public:
    explicit Descriptor(int fd = -1) : fd_(fd) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    void Reset(int fd) {
        Close();
        fd_ = fd;
    }
    bool open() const { return fd_ >= 0; }
    int get() const { return fd_; }
    // 0 or an error number.
    int Close();

  private:
    int fd_;
};

// Writes all of it, to the disk itself where there is one, and closes the file. 0 or an error
// number.
int WriteAll(Descriptor& file, std::string_view content);

}  // namespace kestrane
