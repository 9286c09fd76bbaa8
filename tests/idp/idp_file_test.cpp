// Parameter files on disk: an unreadable file is kept aside and reads empty, a failed or
// interrupted write leaves the old file whole, and concurrent writers never leave a broken file.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <functional>
#include <set>
#include <thread>

#include "services/fileio/atomic_file.h"
#include "services/idp/idp_file.h"
#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "tests/idp/idp_test_support.h"

namespace kestra::idp::test {
namespace {

constexpr const char* kGoodText = "; OrvelKestra parameter file\nWgglbc\\Zrglys=0.75\nWgglbc\\Mbglys=0.92\n";

class IdpFileTest : public IdpFolderTest {
 protected:
  void TearDown() override { kestra::fileio::testing::SetBeforePublishHook({}); }
  std::vector<std::string> EntriesStartingWith(const std::string& prefix) const {
    std::vector<std::string> out;
    for (const auto& name : Entries())
      if (name.rfind(prefix, 0) == 0) out.push_back(name);
    return out;
  }
  // Runs body in a child process and returns its exit status (-1 when it did not exit).
  static int InChild(const std::function<int()>& body) {
    pid_t pid = ::fork();
    if (pid == 0) ::_exit(body());
    int status = 0;
    ::waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  // After a write that did not happen: the old text, and no temporary beside it.
  void ExpectOnlyTheOldFile(const std::string& path) const {
    EXPECT_EQ(Get(path), kGoodText);
    EXPECT_EQ(Entries(), std::vector<std::string>{"p.idp"});
  }
};

class CorruptFileTest : public IdpFileTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(CorruptFileTest, IsKeptAsideAndReadsEmptyThenTheNextReadIsClean) {
  const std::string path = Path("电压损失计算.idp");
  const std::string bytes = std::string(kGoodText) + GetParam();
  Put(path, bytes);

  CInterDpData tree;
  EXPECT_EQ(tree.ReadDataFromIdpFile(path), kUnreadableFile);
  EXPECT_EQ(tree.GetSubValueFromPathW(0, "Wgglbc\\Zrglys"), nullptr);  // no half-read tree
  EXPECT_EQ(ValueOr(tree, "Wgglbc\\Zrglys", "0.8"), "0.8");
  auto aside = EntriesStartingWith("电压损失计算.idp.unreadable-");
  ASSERT_EQ(aside.size(), 1u);
  EXPECT_EQ(aside[0].size(), std::string("电压损失计算.idp.unreadable-YYYYmmdd-HHMMSS").size());
  EXPECT_EQ(Get(Path(aside[0])), bytes);
  EXPECT_FALSE(fs::exists(path));

  EXPECT_EQ(tree.ReadDataFromIdpFile(path), kMissingFile);
  SetValue(tree, "Wgglbc\\Zrglys", "0.7");
  ASSERT_EQ(tree.WriteDataToIdpFile(path), kOk);
  EXPECT_EQ(tree.ReadDataFromIdpFile(path), kOk);
  EXPECT_EQ(Get(Path(aside[0])), bytes);  // the designer's old file is still there
}

// Keys far deeper or longer than any calculator's.
const std::string kDeepKey = [] {
  std::string k = "A";
  for (int i = 0; i < 100000; ++i) k += "\\B";
  return k + "=1\n";
}();
const std::string kLongKey = std::string(2000, 'K') + "=1\n";

INSTANTIATE_TEST_SUITE_P(Kinds, CorruptFileTest,
                         ::testing::Values(kDeepKey.c_str(), kLongKey.c_str(), "no equals sign\n",
                                           "A\\\\B=empty name\n", "\\A=leading\n", "A\\=trailing\n",
                                           "Top=1\n\\A=after a top key\n", "=no key\n", "A=bad \\q escape\n",
                                           "A=ends in a lone \\\n", "A=\xFF\xFE\n", "A=\xE4\xB8\n", "A\x01=control\n",
                                           "A=\xC0\xAF overlong\n"));

TEST_F(IdpFileTest, RepeatedUnreadableFilesGetDistinctNames) {
  CInterDpData tree;
  for (int i = 0; i < 3; ++i) {
    Put(Path("x.idp"), "garbage " + std::to_string(i) + "\n");
    EXPECT_EQ(tree.ReadDataFromIdpFile(Path("x.idp")), kUnreadableFile);
  }
  const auto aside = EntriesStartingWith("x.idp.unreadable-");
  ASSERT_EQ(aside.size(), 3u);
  std::set<std::string> contents;
  for (const auto& name : aside) contents.insert(Get(Path(name)));
  EXPECT_EQ(contents.size(), 3u);
}

// A FIFO (or any other non-file) where the file should be reads as empty at once, is left
// in place, and the next write puts a file there.
TEST_F(IdpFileTest, ANonFileReadsEmptyWithoutWaiting) {
  const std::string path = Path("p.idp");
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  CInterDpData tree;
  EXPECT_EQ(tree.ReadDataFromIdpFile(path), kReadFailed);
  EXPECT_TRUE(fs::is_fifo(path));
  fs::create_symlink("/dev/zero", Path("zero.idp"));
  EXPECT_EQ(tree.ReadDataFromIdpFile(Path("zero.idp")), kReadFailed);
  SetValue(tree, "A", "1");
  ASSERT_EQ(tree.WriteDataToIdpFile(path), kOk);
  EXPECT_EQ(Get(path), "; OrvelKestra parameter file\nA=1\n");
}

TEST_F(IdpFileTest, UnwritablePlacesReportFailureWithoutThrowing) {
  CInterDpData tree;
  SetValue(tree, "A", "1");
  Put(Path("plain"), "a regular file");
  fs::create_directories(dir_ / "folder.idp");
  // As root no permission bit stops us, so these fail for reasons root cannot override.
  for (const std::string& path : {std::string("/dev/null/x.idp"), Path("plain/sub/x.idp"), Path("folder.idp"),
                                 std::string("/proc/kestra-no-such/x.idp")}) {
    short result = 0;
    EXPECT_NO_THROW(result = tree.WriteDataToIdpFile(path)) << path;
    EXPECT_EQ(result, kWriteFailed) << path;
  }
  EXPECT_EQ(Get(Path("plain")), "a regular file");
  EXPECT_TRUE(fs::is_directory(dir_ / "folder.idp"));
  EXPECT_EQ(Entries(), (std::vector<std::string>{"folder.idp", "plain"}));  // no temporary left
}

// Missing folders are made, an unchanged tree leaves the file alone, and a link stays a link.
TEST_F(IdpFileTest, WhereAndWhetherAWriteLands) {
  CInterDpData fresh;
  SetValue(fresh, "A", "1");
  ASSERT_EQ(fresh.WriteDataToIdpFile(Path("root/Kestra/无功功率补偿计算.idp")), kOk);
  EXPECT_EQ(Get(Path("root/Kestra/无功功率补偿计算.idp")), "; OrvelKestra parameter file\nA=1\n");

  fs::create_directories(dir_ / "real");
  const std::string real = Path("real/p.idp");
  Put(real, kGoodText);
  fs::create_symlink(real, dir_ / "p.idp");
  const auto inode = [&] {
    struct stat st;
    return ::stat(real.c_str(), &st) == 0 ? st.st_ino : 0;
  };
  const auto before = inode();
  CInterDpData tree;
  ASSERT_EQ(tree.ReadDataFromIdpFile(Path("p.idp")), kOk);
  ASSERT_EQ(tree.WriteDataToIdpFile(Path("p.idp")), kOk);
  EXPECT_EQ(inode(), before);  // not replaced
  SetValue(tree, "Wgglbc\\Zrglys", "0.76");
  ASSERT_EQ(tree.WriteDataToIdpFile(Path("p.idp")), kOk);
  EXPECT_NE(inode(), before);  // replaced by a new file
  EXPECT_TRUE(fs::is_symlink(dir_ / "p.idp"));
  EXPECT_NE(Get(real).find("Wgglbc\\Zrglys=0.76\n"), std::string::npos);
  // A link to a file not there yet (relative, as a designer makes one): the file is made
  // where the link points, and the link stays.
  fs::create_symlink("real/new.idp", dir_ / "new.idp");
  ASSERT_EQ(tree.WriteDataToIdpFile(Path("new.idp")), kOk);
  EXPECT_TRUE(fs::is_symlink(dir_ / "new.idp"));
  EXPECT_NE(Get(Path("real/new.idp")).find("Wgglbc\\Zrglys=0.76\n"), std::string::npos);
}

// (A writer that dies before its rename: the file writer's test of killed writers' temporaries,
// and the failed-rename test below.)
TEST_F(IdpFileTest, AWriterThatFindsTheDiskFullLeavesTheOldFile) {
  const std::string path = Path("p.idp");
  Put(path, kGoodText);
  // A file-size limit makes the kernel refuse the write the way a full disk does.
  ASSERT_EQ(InChild([&] {
              ::signal(SIGXFSZ, SIG_IGN);
              struct rlimit limit = {64, 64};
              if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 10;
              CInterDpData big;
              for (int i = 0; i < 100; ++i) SetValue(big, "Key" + std::to_string(i), std::string(20, 'x'));
              return big.WriteDataToIdpFile(path) == kWriteFailed ? 0 : 11;
            }),
            0);
  ExpectOnlyTheOldFile(path);
}

TEST_F(IdpFileTest, AWriteThatFailsBeforeTheRenameCleansUp) {
  const std::string path = Path("p.idp");
  Put(path, kGoodText);
  ::chmod(path.c_str(), 0640);
  CInterDpData tree;
  ASSERT_EQ(tree.ReadDataFromIdpFile(path), kOk);
  SetValue(tree, "Wgglbc\\Zrglys", "0.5");

  std::string seen;
  kestra::fileio::testing::SetBeforePublishHook([&](const std::string& temp) {
    seen = Get(temp);  // the whole new text is on disk before the rename
    return false;
  });
  EXPECT_EQ(tree.WriteDataToIdpFile(path), kWriteFailed);
  EXPECT_NE(seen.find("Wgglbc\\Zrglys=0.5\n"), std::string::npos);
  kestra::fileio::testing::SetBeforePublishHook([](const std::string&) -> bool { throw std::runtime_error("boom"); });
  EXPECT_EQ(tree.WriteDataToIdpFile(path), kWriteFailed);
  ExpectOnlyTheOldFile(path);

  kestra::fileio::testing::SetBeforePublishHook({});
  ASSERT_EQ(tree.WriteDataToIdpFile(path), kOk);
  struct stat st;
  ASSERT_EQ(::stat(path.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0640u);  // the file keeps its permissions
}

TEST_F(IdpFileTest, ConcurrentWritersNeverLeaveABrokenFile) {
  const std::string path = Path("shared.idp");
  constexpr int kKeys = 200;
  const auto key = [](int k) { return "Cal\\Key" + std::to_string(k); };
  // Every write holds one marker in all its keys, so a read that mixes two writes shows.
  const auto write_many = [&](const std::string& who) {
    for (int w = 0; w < 150; ++w) {
      CInterDpData tree;
      const std::string marker = who + "-" + std::to_string(w) + std::string(w % 7, ' ');
      for (int k = 0; k < kKeys; ++k) SetValue(tree, key(k), marker);
      if (tree.WriteDataToIdpFile(path) != kOk) return 1;
    }
    return 0;
  };
  const auto whole = [&] {
    CInterDpData tree;
    if (tree.ReadDataFromIdpFile(path) != kOk) return false;
    const std::string first = ValueOr(tree, key(0), "");
    if (first.empty()) return false;
    if (first == "start") return true;
    for (int k = 1; k < kKeys; ++k)
      if (ValueOr(tree, key(k), "") != first) return false;
    return true;
  };
  CInterDpData start;
  SetValue(start, key(0), "start");
  ASSERT_EQ(start.WriteDataToIdpFile(path), kOk);
  std::vector<pid_t> children;
  for (const char* who : {"A", "B"}) {
    pid_t pid = ::fork();
    if (pid == 0) {
      // Two threads in each process as well, so writers of one process race too.
      std::atomic<int> failures{0};
      std::thread t([&] { failures += write_many(std::string(who) + "t"); });
      failures += write_many(who);
      t.join();
      ::_exit(failures.load());
    }
    children.push_back(pid);
  }
  int reads = 0, bad = 0;
  while (!children.empty()) {
    std::erase_if(children, [](pid_t pid) {
      int status = 0;
      if (::waitpid(pid, &status, WNOHANG) != pid) return false;
      EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "a writer failed";
      return true;
    });
    ++reads;
    if (!whole()) ++bad;
  }
  EXPECT_EQ(bad, 0) << "of " << reads << " reads";
  EXPECT_GT(reads, 10);
  EXPECT_EQ(Entries(), std::vector<std::string>{"shared.idp"});  // nothing kept aside, no temporary
}

}  // namespace
}  // namespace kestra::idp::test
