#include "host/disk.h"

#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

namespace kestrane {
namespace {

namespace fs = std::filesystem;
using Readers = FileStore::Readers;

mode_t ModeOf(const fs::path& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 0777 : 0;
}

class DiskTest : public testing::Test {
  protected:
    DiskTest() { fs::create_directories(folder); }
    ~DiskTest() override {
        fs::permissions(folder, fs::perms::owner_all);
        fs::remove_all(folder);
    }

    std::string Path(const std::string& name) const { return (folder / name).string(); }
    std::string Replace(const std::string& path, const std::string& content,
                        Readers readers = Readers::kEveryone) {
        return disk.Replace(path, content, readers).value_or("");
    }
    std::string Read(const std::string& path) { return disk.Read(path).bytes; }
    std::size_t Names() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }

    Disk disk;
    const fs::path folder =
        fs::temp_directory_path() / ("kestrane_disk_" + std::to_string(::getpid()));
};

// Makes files longer than this impossible for as long as it lives, as a full disk does.
class SmallDisk {
  public:
    explicit SmallDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit small = before_;
        small.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

  private:
    rlimit before_{};
    void (*handler_)(int);
};

TEST_F(DiskTest, TellsWhyAPathCannotBeReadOrWritten) {
    ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
    fs::create_symlink("round", Path("round"));
    const struct {
        std::string path;
        const char* reading;
        const char* writing;
        const char* beforehand;
    } kCases[] = {
        {Path("none"), "No such file or directory", "", ""},
        {folder.string(), "Is a directory", "Is a directory", "Is a directory"},
        {Path("no/folder"), "No such file or directory", "No such file or directory",
         "No such file or directory"},
        {"", "No such file or directory", "No such file or directory", "No such file or directory"},
        {"/dev/zero", "File too large", "", ""},
        {"/dev/full", "File too large", "No space left on device", ""},
        {Path("pipe"), "", "No such device or address", ""},
        {Path("round"), "Too many levels of symbolic links", "Too many levels of symbolic links",
         "Too many levels of symbolic links"},
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.path);
        EXPECT_EQ(disk.Read(row.path).error.value_or(""), row.reading);
        EXPECT_EQ(disk.WhyNotWritable(row.path).value_or(""), row.beforehand);
        EXPECT_EQ(Replace(row.path, "x"), row.writing);
    }
}

TEST_F(DiskTest, WritesToAPipeThatOnlyALinkNames) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const std::string path = "/dev/fd/" + std::to_string(ends[1]);
    EXPECT_EQ(disk.WhyNotWritable(path).value_or(""), "");
    EXPECT_EQ(disk.Replace(path, "text", Readers::kOwner).value_or(""), "");
    char text[8];
    EXPECT_EQ(::read(ends[0], text, sizeof text), 4);
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST_F(DiskTest, MakesAFolderWithThoseAboveItOrTellsWhyNot) {
    EXPECT_EQ(disk.MakeFolder(Path("deep/er")), std::nullopt);
    EXPECT_EQ(disk.MakeFolder(Path("deep/er")), std::nullopt);
    EXPECT_EQ(Replace(Path("deep/er/file"), "x"), "");
    EXPECT_EQ(disk.MakeFolder(Path("deep/er/file")), "Not a directory");
    EXPECT_EQ(disk.MakeFolder(Path("deep/er/file/below")), "Not a directory");
}

TEST_F(DiskTest, KeepsTheOldFileUntilTheNewOneIsComplete) {
    const std::string old(3000, 'o');
    const std::string longer(9000, 'n');
    ASSERT_EQ(Replace(Path("a"), old), "");
    ASSERT_EQ(Replace(Path("twice"), old), "");
    fs::create_hard_link(Path("twice"), Path("other name"));
    for (const auto* name : {"a", "twice"}) {
        const SmallDisk small(4000);
        EXPECT_EQ(Replace(Path(name), longer), "File too large");
        EXPECT_EQ(Read(Path(name)), old);
    }
    EXPECT_EQ(Names(), 3u);
    EXPECT_EQ(Replace(Path("a"), longer), "");
    EXPECT_EQ(Read(Path("a")), longer);
    EXPECT_EQ(Replace(Path("a"), "short"), "");
    EXPECT_EQ(Read(Path("a")), "short");
}

TEST_F(DiskTest, LinksStayLinks) {
    fs::create_symlink("target", Path("link"));
    EXPECT_FALSE(disk.WhyNotWritable(Path("link")));
    EXPECT_EQ(Replace(Path("link"), "dangling"), "");
    EXPECT_EQ(Read(Path("target")), "dangling");
    EXPECT_EQ(Replace(Path("link"), "again"), "");
    EXPECT_TRUE(fs::is_symlink(Path("link")));
    EXPECT_EQ(Read(Path("target")), "again");
    fs::create_hard_link(Path("target"), Path("second"));
    EXPECT_EQ(Replace(Path("second"), "of two names"), "");
    EXPECT_EQ(Read(Path("target")), "of two names");
    EXPECT_EQ(fs::hard_link_count(Path("target")), 2u);
}

TEST_F(DiskTest, ModesAreKeptAndSecretsAreTheOwners) {
    ASSERT_EQ(Replace(Path("new"), "x"), "");
    EXPECT_EQ(ModeOf(Path("new")) & 0600, 0600u);
    ASSERT_EQ(Replace(Path("secret"), "x", Readers::kOwner), "");
    EXPECT_EQ(ModeOf(Path("secret")), 0600u);
    for (const mode_t mode : {0644u, 0600u, 0755u}) {
        ::chmod(Path("new").c_str(), mode);
        ASSERT_EQ(Replace(Path("new"), "y"), "");
        EXPECT_EQ(ModeOf(Path("new")), mode);
        ASSERT_EQ(Replace(Path("new"), "z", Readers::kOwner), "");
        EXPECT_EQ(ModeOf(Path("new")), mode & 0700);
    }
    fs::create_hard_link(Path("new"), Path("second"));
    ::chmod(Path("new").c_str(), 0644);
    ASSERT_EQ(Replace(Path("new"), "in place", Readers::kOwner), "");
    EXPECT_EQ(ModeOf(Path("new")), 0600u);
}

TEST_F(DiskTest, WhatAnInterruptedSaveLeftIsUsedUp) {
    for (int i = 0; i < 3; ++i) {
        std::ofstream(Path(".kestrane-save-" + std::to_string(i))) << "left";
    }
    fs::create_directory(Path(".kestrane-save-3"));
    // One of another program that is still at it.
    const int busy = ::open(Path(".kestrane-save-0").c_str(), O_RDONLY);
    ASSERT_EQ(::flock(busy, LOCK_EX), 0);
    for (int i = 0; i < 120; ++i) ASSERT_EQ(Replace(Path("a"), std::to_string(i)), "");
    EXPECT_EQ(Read(Path("a")), "119");
    EXPECT_EQ(Read(Path(".kestrane-save-0")), "left");
    EXPECT_FALSE(fs::exists(Path(".kestrane-save-1")));
    ::close(busy);
}

// The superuser may write everywhere, so this is done by somebody else in a process of its own.
TEST_F(DiskTest, AFileMayBeWrittenWhereItsFolderMayNot) {
    ASSERT_EQ(Replace(Path("open"), "old"), "");
    ASSERT_EQ(Replace(Path("closed"), "old"), "");
    ::chmod(Path("open").c_str(), 0666);
    ::chmod(Path("closed").c_str(), 0444);
    ::chmod(folder.c_str(), 0555);
    const pid_t child = ::fork();
    if (child == 0) {
        if (::geteuid() == 0 && ::setuid(65534) != 0) ::_exit(9);
        const bool good = Replace(Path("open"), "new") == "" &&
                          !disk.WhyNotWritable(Path("open")) &&
                          Replace(Path("closed"), "new") == "Permission denied" &&
                          disk.WhyNotWritable(Path("closed")) == "Permission denied" &&
                          Replace(Path("fresh"), "new") == "Permission denied" &&
                          disk.WhyNotWritable(Path("fresh")) == "Permission denied";
        ::_exit(good ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(Read(Path("open")), "new");
    EXPECT_EQ(Read(Path("closed")), "old");
}

}  // namespace
}  // namespace kestrane
