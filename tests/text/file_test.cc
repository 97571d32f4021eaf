#include "lipvane/text/file.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/comma_locale.h"
#include "tests/support/temporary_folder.h"

#ifdef __unix__
#include <unistd.h>
#endif

namespace lipvane::text {
namespace {

namespace fs = std::filesystem;

constexpr char kWritten[] = "";

class FileTest : public testing::Test {
 protected:
  /// Why a file cannot be written, or kWritten.
  static std::string Write(const std::string& path, const std::string& bytes = "x") {
    OutputFile file;
    std::string reason;
    if (!file.Open(path, OutputFile::Mode::kBinary, reason)) return reason;
    file.Stream() << bytes;
    return file.Commit(reason) ? kWritten : reason;
  }

  test::TemporaryFolder folder_;
};

using ReadFileTest = FileTest;
using OutputFileTest = FileTest;

TEST_F(ReadFileTest, KeepsEveryByte) {
  const std::string some("a\r\n\0\x1a\xff b", 8);
  std::string content;
  std::string reason;
  // It is read in pieces: none, one, just one, several.
  for (const std::size_t size : {0U, 8U, 65536U, 200001U}) {
    std::string bytes;
    while (bytes.size() < size)
      bytes += some + std::to_string(bytes.size());
    bytes.resize(size);
    EXPECT_TRUE(ReadFile(folder_.Make("some", bytes), content, reason)) << reason;
    EXPECT_TRUE(content == bytes) << size;
  }
  const std::string unsized = "/proc/self/status";
  EXPECT_EQ(fs::exists(unsized), ReadFile(unsized, content, reason) && content.size() > 100);
}

TEST_F(ReadFileTest, SaysWhyItCannot) {
  const std::string vast = folder_.Make("vast", "");
  fs::resize_file(vast, kMaxFileSize + 1);  // sparse: takes no room
  const auto reasonFor = [](const std::string& path) {
    std::string content = "before";
    std::string reason;
    EXPECT_FALSE(ReadFile(path, content, reason));
    EXPECT_EQ(content, "before");
    return reason;
  };
  EXPECT_EQ(reasonFor(folder_.Path("missing")), "No such file or directory");
  EXPECT_EQ(reasonFor(folder_.Path()), "Is a directory");
  EXPECT_EQ(reasonFor(vast), "File too large");
  EXPECT_EQ(reasonFor("/dev/zero"), "File too large");  // would never end
}

TEST_F(OutputFileTest, ReplacesOnCommitAlone) {
  const std::string name(255, 'n');  // no room for a longer one
  const std::string path = folder_.Make(name, "old");
  std::string reason;
  {
    OutputFile file;
    ASSERT_TRUE(file.Open(path, OutputFile::Mode::kText, reason)) << reason;
    file.Stream() << "half" << std::flush;
    ASSERT_TRUE(file.Open(folder_.Path("other"), OutputFile::Mode::kText, reason)) << reason;
    file.Discard();
    EXPECT_FALSE(file.Commit(reason));
    ASSERT_TRUE(file.Open(folder_.Path("third"), OutputFile::Mode::kText, reason)) << reason;
  }
  EXPECT_EQ(folder_.Content(name), "old");
  EXPECT_EQ(folder_.Names().size(), 1U);
  EXPECT_EQ(Write(path, "new"), kWritten);
  EXPECT_EQ(folder_.Content(name), "new");
  EXPECT_EQ(folder_.Names().size(), 1U);
}

TEST_F(OutputFileTest, WritesNumbersWithoutTheLocale) {
  const test::CommaLocale locale;
  OutputFile file;
  std::string reason;
  ASSERT_TRUE(file.Open(folder_.Path("numbers"), OutputFile::Mode::kText, reason)) << reason;
  file.Stream() << 1234.5;
  EXPECT_TRUE(file.Commit(reason)) << reason;
  EXPECT_EQ(folder_.Content("numbers"), "1234.5");
}

TEST_F(OutputFileTest, KeepsPermissionsAndLinks) {
  const fs::perms narrow = fs::perms::owner_read | fs::perms::owner_write;
  fs::permissions(folder_.Make("secret", "old"), narrow);
  fs::create_symlink("secret", folder_.Path("link"));
  fs::create_symlink("not_yet", folder_.Path("dangling"));
  EXPECT_EQ(Write(folder_.Path("link"), "new"), kWritten);
  EXPECT_EQ(Write(folder_.Path("dangling"), "made"), kWritten);
  EXPECT_TRUE(fs::is_symlink(folder_.Path("link")));
  EXPECT_EQ(folder_.Content("secret"), "new");
  EXPECT_EQ(fs::status(folder_.Path("secret")).permissions(), narrow);
  EXPECT_EQ(folder_.Content("not_yet"), "made");
}

TEST_F(OutputFileTest, RefusesWhatCannotBeWritten) {
  fs::create_symlink("round", folder_.Path("round"));
  EXPECT_EQ(Write(folder_.Path("missing/out")), "No such file or directory");
  EXPECT_EQ(Write(""), "No such file or directory");
  EXPECT_EQ(Write(folder_.Path()), "Is a directory");
  EXPECT_EQ(Write(folder_.Path("missing/")), "Is a directory");
  EXPECT_EQ(Write(folder_.Path("round")), "Too many levels of symbolic links");
  EXPECT_EQ(folder_.Names().size(), 1U);
}

TEST_F(OutputFileTest, InAReadOnlyFolderWritesWhatIsThereAndMayBeWritten) {
  const std::string path = folder_.Make("fixed", "old");
  fs::permissions(path, fs::perms::owner_read);
  fs::permissions(folder_.Make("open", "older"), fs::perms::all);
  constexpr fs::perms kReadable{0555};
  fs::permissions(folder_.Path(), kReadable);
#ifdef __unix__
  // Root may write everything, so it is nobody for a moment.
  constexpr uid_t kNobody = 65534;
  const uid_t user = geteuid();
  ASSERT_EQ(seteuid(user == 0 ? kNobody : user), 0);
#endif
  const std::string reason = Write(path);
  const std::string reasonInFolder = Write(folder_.Path("new"));
  const std::string reasonInPlace = Write(folder_.Path("open"));
#ifdef __unix__
  ASSERT_EQ(seteuid(user), 0);
#endif
  fs::permissions(folder_.Path(), fs::perms::owner_all);
  EXPECT_EQ(reason, "Permission denied");
  EXPECT_EQ(reasonInFolder, "Permission denied");
  EXPECT_EQ(reasonInPlace, kWritten);
  EXPECT_EQ(folder_.Content("open"), "x");
  EXPECT_EQ(folder_.Names().size(), 2U);
}

TEST_F(OutputFileTest, AllowsAPathThatLeavesNoRoomForATemporary) {
  std::string path = folder_.Path();
  while (path.size() < 3893)
    fs::create_directory(path += "/" + std::string(200, 'd'));
  path += "/" + std::string(4094 - path.size(), 'n');
  OutputFile file;
  std::string reason;
  EXPECT_TRUE(file.Open(path, OutputFile::Mode::kText, reason)) << reason;
  file.Discard();
  EXPECT_FALSE(fs::exists(path));
  EXPECT_EQ(Write(path), kWritten);
}

TEST_F(OutputFileTest, TellsOfAFullDisk) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
  EXPECT_EQ(Write("/dev/full"), "No space left on device");
  EXPECT_NE(Write("/dev/full", std::string(1000000, 'x')), kWritten);
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(OutputFileTest, AppendsToAnOpenFile) {
  const std::string path = folder_.Make("log", "earlier ");
  const std::ofstream held(path, std::ios::app);
  ASSERT_TRUE(held.is_open());
  if (!fs::exists("/proc/self/fd")) GTEST_SKIP() << "open files have no names here";
  for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
    std::error_code error;
    if (fs::read_symlink(entry.path(), error) != path) continue;
    EXPECT_EQ(Write(entry.path().string(), "later"), kWritten);
    break;
  }
  EXPECT_EQ(folder_.Content("log"), "earlier later");
}

}  // namespace
}  // namespace lipvane::text
