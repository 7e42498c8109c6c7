#include "Failure.h"
#include "TempFolder.h"

#include "hostkit/FileText.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <clocale>
#include <filesystem>
#include <string>

#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using VellariHostKit::ReadWholeFile;
using VellariHostKit::WriteWholeFile;

TEST(FileText, WritesAndReadsAnyBytes) {
    TempFolder const folder;
    std::string const file = folder.File("data");
    std::string text;
    for (int index = 0; index < 300000; ++index) {
        text += static_cast<char>(index % 251);
    }
    WriteWholeFile(file, text);
    EXPECT_EQ(ReadWholeFile(file), text);
    WriteWholeFile(file, "");
    EXPECT_EQ(ReadWholeFile(file), "");
    EXPECT_EQ(folder.FileCount(), 1u);
}

TEST(FileText, KeepsThePermissionsOfTheOldFile) {
    TempFolder const folder;
    std::string const file = folder.Put("data", "old");
    ASSERT_EQ(::chmod(file.c_str(), 0640), 0);
    WriteWholeFile(file, "new");
    struct stat state {};
    ASSERT_EQ(::stat(file.c_str(), &state), 0);
    EXPECT_EQ(state.st_mode & 07777, 0640u);
}

TEST(FileText, FollowsALink) {
    TempFolder const folder;
    std::string const file = folder.Put("data", "old");
    std::filesystem::create_symlink(file, folder.File("link"));
    WriteWholeFile(folder.File("link"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.File("link")));
    EXPECT_EQ(TempFolder::Read(file), "new");
}

TEST(FileText, DoesNotReplaceWhatIsNoPlainFile) {
    WriteWholeFile("/dev/null", "text");
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
    EXPECT_EQ(FailureOf([] { WriteWholeFile("/dev/full", "text"); }),
              "/dev/full: can't be written: No space left on device");
}

TEST(FileText, AMissingFolderIsAnErrorThatNamesTheFile) {
    TempFolder const folder;
    std::string const file = folder.File("missing/data");
    EXPECT_EQ(FailureOf([&] { WriteWholeFile(file, "x"); }),
              file + ": can't be written: No such file or directory");
    EXPECT_EQ(FailureOf([&] { ReadWholeFile(file); }), file + ": can't be read: No such file or directory");
}

TEST(FileText, TheReasonIsInTheWordsOfTheCLocaleWhateverTheHostHasSet) {
    std::string const before = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << "the locale de_DE.UTF-8 is missing";
    std::string const failure = FailureOf([] { ReadWholeFile("/missing"); });
    std::setlocale(LC_ALL, before.c_str());
    EXPECT_EQ(failure, "/missing: can't be read: No such file or directory");
    EXPECT_EQ(VellariHostKit::SystemReason(ENOSPC), "No space left on device");
}

TEST(FileText, AFolderIsNoFile) {
    TempFolder const folder;
    std::string const path = folder.File("");
    EXPECT_EQ(FailureOf([&] { ReadWholeFile(path); }), path + ": can't be read: Is a directory");
    EXPECT_EQ(FailureOf([&] { WriteWholeFile(path, "x"); }), path + ": can't be written: Is a directory");
}

TEST(FileText, AFileWithoutPermissionIsAnError) {
    TempFolder const folder;
    std::string const file = folder.Put("secret", "old");
    ASSERT_EQ(::chmod(file.c_str(), 0), 0);
    std::string const failure = FailureOf([&] { ReadWholeFile(file); });
    // The superuser may read everything.
    EXPECT_EQ(failure,
              ::geteuid() == 0 ? "(nothing was thrown)" : file + ": can't be read: Permission denied");
}

TEST(FileText, AWriteThatFailsLeavesTheOldFileAndNothingElse) {
    TempFolder const folder;
    std::string const file = folder.Put("data", "old");
    // A limit on the size of files stands for a full disk.
    struct rlimit before {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    struct rlimit const small = {1000, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    auto const oldHandler = ::signal(SIGXFSZ, SIG_IGN);
    std::string const failure = FailureOf([&] { WriteWholeFile(file, std::string(100000, 'x')); });
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    ::signal(SIGXFSZ, oldHandler);
    EXPECT_EQ(failure, file + ": can't be written: File too large");
    EXPECT_EQ(TempFolder::Read(file), "old");
    EXPECT_EQ(folder.FileCount(), 1u);
}
