#include "lipvane/text/file.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#ifdef __unix__
#include <unistd.h>
#endif

namespace lipvane::text {
namespace {

namespace fs = std::filesystem;

/// A folder of its own for each test.
class FileTest : public testing::Test {
 protected:
  FileTest() {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    folder_ = fs::path(testing::TempDir()) / (std::string("lipvane_") + test->name());
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  ~FileTest() override { fs::remove_all(folder_); }

  std::string Path(const std::string& name) const { return (folder_ / name).string(); }

  std::string Make(const std::string& name, const std::string& bytes) const {
    std::ofstream(Path(name), std::ios::binary) << bytes;
    return Path(name);
  }

  static std::string Content(const std::string& path) {
    std::string content;
    std::string reason;
    EXPECT_TRUE(ReadFile(path, content, reason)) << reason;
    return content;
  }

  /// Every name in the folder, so that a temporary left behind shows.
  std::ptrdiff_t Entries() const {
    return std::distance(fs::directory_iterator(folder_), fs::directory_iterator());
  }

  static bool Write(const std::string& path, const std::string& bytes, std::string& reason) {
    OutputFile file;
    if (!file.Open(path, OutputFile::Mode::kBinary, reason)) return false;
    file.Stream() << bytes;
    return file.Commit(reason);
  }

  fs::path folder_;
};

using ReadFileTest = FileTest;
using OutputFileTest = FileTest;

TEST_F(ReadFileTest, KeepsEveryByte) {
  const std::string bytes("a\r\n\0\x1a\xff b", 8);
  EXPECT_EQ(Content(Make("small", bytes)), bytes);
  EXPECT_FALSE(fs::exists("/proc/self/status") && Content("/proc/self/status").empty());  // no size
}

TEST_F(ReadFileTest, SaysWhyItCannot) {
  std::string content = "before";
  std::string reason;
  EXPECT_FALSE(ReadFile(Path("missing"), content, reason));
  EXPECT_EQ(reason, "No such file or directory");
  EXPECT_FALSE(ReadFile(folder_.string(), content, reason));
  EXPECT_EQ(reason, "Is a directory");
  fs::resize_file(Make("vast", ""), kMaxFileSize + 1);  // sparse: takes no room
  EXPECT_FALSE(ReadFile(Path("vast"), content, reason));
  EXPECT_EQ(reason, "File too large");
  EXPECT_FALSE(ReadFile("/dev/zero", content, reason));  // would never end
  EXPECT_EQ(reason, "File too large");
  EXPECT_EQ(content, "before");
}

TEST_F(OutputFileTest, ReplacesOnCommitAlone) {
  const std::string path = Make(std::string(255, 'n'), "old");  // no room for a longer name
  std::string reason;
  {
    OutputFile file;
    ASSERT_TRUE(file.Open(path, OutputFile::Mode::kText, reason)) << reason;
    file.Stream() << "half" << std::flush;
    ASSERT_TRUE(file.Open(Path("other"), OutputFile::Mode::kText, reason)) << reason;
    file.Discard();
    EXPECT_FALSE(file.Commit(reason));
    ASSERT_TRUE(file.Open(Path("third"), OutputFile::Mode::kText, reason)) << reason;
  }
  EXPECT_EQ(Content(path), "old");
  EXPECT_EQ(Entries(), 1);
  EXPECT_TRUE(Write(path, "new", reason)) << reason;
  EXPECT_EQ(Content(path), "new");
  EXPECT_EQ(Entries(), 1);
}

TEST_F(OutputFileTest, KeepsPermissionsAndLinks) {
  const fs::perms narrow = fs::perms::owner_read | fs::perms::owner_write;
  fs::permissions(Make("secret", "old"), narrow);
  fs::create_symlink("secret", Path("link"));
  fs::create_symlink("not_yet", Path("dangling"));
  std::string reason;
  EXPECT_TRUE(Write(Path("link"), "new", reason)) << reason;
  EXPECT_TRUE(Write(Path("dangling"), "made", reason)) << reason;
  EXPECT_TRUE(fs::is_symlink(Path("link")));
  EXPECT_EQ(Content(Path("secret")), "new");
  EXPECT_EQ(fs::status(Path("secret")).permissions(), narrow);
  EXPECT_EQ(Content(Path("not_yet")), "made");
}

TEST_F(OutputFileTest, RefusesWhatCannotBeWritten) {
  fs::create_symlink("round", Path("round"));
  std::string reason;
  EXPECT_FALSE(Write(Path("missing/out"), "x", reason));
  EXPECT_EQ(reason, "No such file or directory");
  EXPECT_FALSE(Write("", "x", reason));
  EXPECT_EQ(reason, "No such file or directory");
  EXPECT_FALSE(Write(folder_.string(), "x", reason));
  EXPECT_EQ(reason, "Is a directory");
  EXPECT_FALSE(Write(Path("missing/"), "x", reason));
  EXPECT_EQ(reason, "Is a directory");
  EXPECT_FALSE(Write(Path("round"), "x", reason));
  EXPECT_EQ(reason, "Too many levels of symbolic links");
  EXPECT_EQ(Entries(), 1);
}

TEST_F(OutputFileTest, RefusesAReadOnlyFile) {
  const std::string path = Make("fixed", "old");
  fs::permissions(path, fs::perms::owner_read);
  std::string reason;
#ifdef __unix__
  // Root may write everything, so it is nobody for a moment.
  constexpr uid_t kNobody = 65534;
  const uid_t user = geteuid();
  ASSERT_EQ(seteuid(user == 0 ? kNobody : user), 0);
#endif
  EXPECT_FALSE(Write(path, "new", reason));
#ifdef __unix__
  ASSERT_EQ(seteuid(user), 0);
#endif
  EXPECT_EQ(reason, "Permission denied");
}

TEST_F(OutputFileTest, TellsOfAFullDisk) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
  std::string reason;
  EXPECT_FALSE(Write("/dev/full", "x", reason));
  EXPECT_EQ(reason, "No space left on device");
  reason.clear();
  EXPECT_FALSE(Write("/dev/full", std::string(1000000, 'x'), reason));
  EXPECT_FALSE(reason.empty());
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(OutputFileTest, AppendsToAnOpenFile) {
  const std::string path = Make("log", "earlier ");
  const std::ofstream held(path, std::ios::app);
  ASSERT_TRUE(held.is_open());
  if (!fs::exists("/proc/self/fd")) GTEST_SKIP() << "open files have no names here";
  for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
    std::error_code error;
    if (fs::read_symlink(entry.path(), error) != path) continue;
    std::string reason;
    EXPECT_TRUE(Write(entry.path().string(), "later", reason)) << reason;
    break;
  }
  EXPECT_EQ(Content(path), "earlier later");
}

}  // namespace
}  // namespace lipvane::text
