// Splitting script lines into words.
#include <gtest/gtest.h>

#include "host/script/script_line.h"

namespace {

using kestra::script::Word;

std::vector<std::string> Texts(std::string_view line) {
  std::vector<Word> w;
  std::string error;
  EXPECT_TRUE(kestra::script::SplitLine(line, &w, &error)) << line << ": " << error;
  std::vector<std::string> t;
  for (const Word& x : w) t.push_back(x.text);
  return t;
}

std::string ErrorOf(std::string_view line) {
  std::vector<Word> w;
  std::string error;
  EXPECT_FALSE(kestra::script::SplitLine(line, &w, &error)) << line;
  return error;
}

TEST(ScriptLine, SplitsAtBlanksAndKeepsQuotedBlanks) {
  EXPECT_EQ(Texts("set 1001 0.75"), (std::vector<std::string>{"set", "1001", "0.75"}));
  EXPECT_EQ(Texts("  \tclick   \"  输出 计算\"  \r"), (std::vector<std::string>{"click", "  输出 计算"}));
  EXPECT_EQ(Texts("set \"名称:\" \"\""), (std::vector<std::string>{"set", "名称:", ""}));
  EXPECT_TRUE(Texts("   ").empty());
}

TEST(ScriptLine, ResolvesTheThreeEscapesInQuotes) {
  EXPECT_EQ(Texts(R"(click "  输出\n计算文件")"), (std::vector<std::string>{"click", "  输出\n计算文件"}));
  EXPECT_EQ(Texts(R"(set 1 "a\"b\\c")"), (std::vector<std::string>{"set", "1", "a\"b\\c"}));
  // Outside quotes a backslash is an ordinary character (data paths).
  EXPECT_EQ(Texts(R"(set 1 a\nb)"), (std::vector<std::string>{"set", "1", "a\\nb"}));
}

TEST(ScriptLine, KeepsTheWordAsWrittenAndWhetherItWasQuoted) {
  std::vector<Word> w;
  std::string error;
  ASSERT_TRUE(kestra::script::SplitLine(R"(print "数值\"A\"" 12)", &w, &error));
  ASSERT_EQ(w.size(), 3u);
  EXPECT_EQ(w[1].raw, R"("数值\"A\"")");
  EXPECT_TRUE(w[1].quoted);
  EXPECT_EQ(w[2].raw, "12");
  EXPECT_FALSE(w[2].quoted);
}

TEST(ScriptLine, RefusesBrokenQuoting) {
  EXPECT_NE(ErrorOf("click \"确定").find("not closed"), std::string::npos);
  EXPECT_NE(ErrorOf("click \"a\\").find("not closed"), std::string::npos);
  EXPECT_NE(ErrorOf(R"(set 1 "a\tb")").find("escape"), std::string::npos);
  EXPECT_NE(ErrorOf(R"(set 1 ab"c")").find("quote"), std::string::npos);
  EXPECT_NE(ErrorOf(R"(set 1 "ab"c)").find("blank"), std::string::npos);
}

TEST(ScriptLine, CommentsAndBlankLines) {
  using kestra::script::IsBlankOrComment;
  EXPECT_TRUE(IsBlankOrComment(""));
  EXPECT_TRUE(IsBlankOrComment(" \t\r"));
  EXPECT_TRUE(IsBlankOrComment("; a comment"));
  EXPECT_TRUE(IsBlankOrComment("   ;indented"));
  EXPECT_FALSE(IsBlankOrComment("ok ; not a comment after a statement"));
}

TEST(ScriptLine, CountsArePlainDigits) {
  int n = -1;
  EXPECT_TRUE(kestra::script::ParseCount(Word{"12", "12", false}, &n));
  EXPECT_EQ(n, 12);
  for (const char* bad : {"-1", "1.5", "1e3", "", "0x10", "1234567890"})
    EXPECT_FALSE(kestra::script::ParseCount(Word{bad, bad, false}, &n)) << bad;
  EXPECT_FALSE(kestra::script::ParseCount(Word{"3", "\"3\"", true}, &n)) << "a quoted number is a text";
}

}  // namespace
