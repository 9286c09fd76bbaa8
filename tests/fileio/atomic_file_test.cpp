// The one file writer: new files never take an existing name, and what killed writers left
// beside a file goes with the next successful write of it.
#include "services/fileio/atomic_file.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/idp/idp_test_support.h"

namespace {

using kestra::idp::test::IdpFolderTest;
namespace fs = std::filesystem;

class AtomicFileTest : public IdpFolderTest {};

// A process id that was used and is gone now.
pid_t DeadPid() {
  const pid_t pid = ::fork();
  if (pid == 0) ::_exit(0);
  ::waitpid(pid, nullptr, 0);
  return pid;
}

TEST_F(AtomicFileTest, TemporariesOfKilledWritersGoWithTheNextWrite) {
  const std::string dead = std::to_string(DeadPid());
  const std::string names[] = {
      "p.idp.tmp-" + dead + "-0",                        // a killed writer's: removed
      "p.idp.tmp-" + std::to_string(::getppid()) + "-1",  // a writer still running: kept
      "p.idp.tmp-" + std::to_string(::getpid()) + "-2",   // this process's own: kept
      "q.idp.tmp-" + dead + "-0",                         // another file's: kept
      "p.idp.tmp-" + dead,                                // not a name a writer gives: kept
      "p.idp.tmp-" + dead + "-x",
  };
  for (const std::string& n : names) Put(Path(n), "left over");
  ASSERT_FALSE(kestra::fileio::ReplaceFile(Path("p.idp"), "A=1\n"));
  std::vector<std::string> want(std::begin(names) + 1, std::end(names));
  want.push_back("p.idp");
  std::sort(want.begin(), want.end());
  EXPECT_EQ(Entries(), want);
  EXPECT_EQ(Get(Path("p.idp")), "A=1\n");
}

TEST_F(AtomicFileTest, ANewFileNeverTakesAnExistingName) {
  Put(Path("taken.docx"), "the designer's");
  fs::create_symlink("nowhere", dir_ / "link.docx");  // even a link that leads nowhere
  for (const char* name : {"taken.docx", "link.docx"})
    EXPECT_EQ(kestra::fileio::CreateNewFile(Path(name), "new"), std::errc::file_exists) << name;
  EXPECT_EQ(Get(Path("taken.docx")), "the designer's");
  EXPECT_FALSE(fs::exists(dir_ / "nowhere"));
  ASSERT_FALSE(kestra::fileio::CreateNewFile(Path("free.docx"), "new"));
  EXPECT_EQ(Get(Path("free.docx")), "new");
  EXPECT_EQ(Entries(), (std::vector<std::string>{"free.docx", "link.docx", "taken.docx"}));
}

}  // namespace
