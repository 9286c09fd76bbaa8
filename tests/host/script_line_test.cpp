// Splitting script lines into words.
#include <gtest/gtest.h>

#include "host/script/script_line.h"

namespace {

using kestra::script::SplitLine;
using kestra::script::Word;
using Texts = std::vector<std::string>;

TEST(ScriptLine, SplitsAtBlanksKeepsQuotedBlanksAndResolvesTheThreeEscapes) {
  const struct {
    const char* line;
    Texts words;
  } cases[] = {
      {"set 1001 0.75", {"set", "1001", "0.75"}},
      {"  \tclick   \"  输出 计算\"  \r", {"click", "  输出 计算"}},
      {"set \"名称:\" \"\"", {"set", "名称:", ""}},
      {"   ", {}},
      {R"(click "  输出\n计算文件")", {"click", "  输出\n计算文件"}},
      {R"(set 1 "a\"b\\c")", {"set", "1", "a\"b\\c"}},
      {R"(set 1 a\nb)", {"set", "1", "a\\nb"}},  // outside quotes a backslash is plain (data paths)
  };
  for (const auto& c : cases) {
    std::vector<Word> w;
    std::string error;
    ASSERT_TRUE(SplitLine(c.line, &w, &error)) << c.line << ": " << error;
    Texts got;
    for (const Word& x : w) got.push_back(x.text);
    EXPECT_EQ(got, c.words) << c.line;
  }
  // Each word keeps how it was written and whether it was quoted.
  std::vector<Word> w;
  std::string error;
  ASSERT_TRUE(SplitLine(R"(print "数值\"A\"" 12)", &w, &error));
  ASSERT_EQ(w.size(), 3u);
  EXPECT_EQ(w[1].raw, R"("数值\"A\"")");
  EXPECT_TRUE(w[1].quoted);
  EXPECT_EQ(w[2].raw, "12");
  EXPECT_FALSE(w[2].quoted);
}

TEST(ScriptLine, RefusesBrokenQuoting) {
  const struct {
    const char* line;
    const char* error;
  } cases[] = {
      {"click \"确定", "a quoted word is not closed"},
      {"click \"a\\", "a quoted word is not closed"},
      {R"(set 1 "a\tb")", R"(unknown escape \t in a quoted word (use \" \\ or \n))"},
      {R"(set 1 ab"c")", "a quote inside a word (quote the whole word)"},
      {R"(set 1 "ab"c)", "a closing quote must be followed by a blank"},
  };
  for (const auto& c : cases) {
    std::vector<Word> w;
    std::string error;
    EXPECT_FALSE(SplitLine(c.line, &w, &error)) << c.line;
    EXPECT_EQ(error, c.error) << c.line;
  }
}

TEST(ScriptLine, CommentsBlankLinesAndCounts) {
  using kestra::script::IsBlankOrComment;
  for (const char* yes : {"", " \t\r", "; a comment", "   ;indented"}) EXPECT_TRUE(IsBlankOrComment(yes)) << yes;
  EXPECT_FALSE(IsBlankOrComment("ok ; not a comment after a statement"));

  int n = -1;
  EXPECT_TRUE(kestra::script::ParseCount(Word{"12", "12", false}, &n));
  EXPECT_EQ(n, 12);
  for (const char* bad : {"-1", "1.5", "1e3", "", "0x10", "1234567890"})
    EXPECT_FALSE(kestra::script::ParseCount(Word{bad, bad, false}, &n)) << bad;
  EXPECT_FALSE(kestra::script::ParseCount(Word{"3", "\"3\"", true}, &n)) << "a quoted number is a text";
}

}  // namespace
