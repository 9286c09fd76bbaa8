#include <gtest/gtest.h>

#include "services/report/marked_text.h"

using kestra::report::Run;
using kestra::report::RunKind;
using kestra::report::SplitMarkedText;

namespace {
Run P(const char* t) { return Run{t, RunKind::kPlain}; }
Run Sub(const char* t) { return Run{t, RunKind::kSubscript}; }
Run Sup(const char* t) { return Run{t, RunKind::kSuperscript}; }
using Runs = std::vector<Run>;
}  // namespace

TEST(SplitMarkedText, MarkPairsMakeScriptRuns) {
  EXPECT_EQ(SplitMarkedText("P<L>js</L>="), (Runs{P("P"), Sub("js"), P("=")}));
  EXPECT_EQ(SplitMarkedText("(βQjs/αPjs)<U>2</U>)]<U>0.5</U>=0.75"),
            (Runs{P("(βQjs/αPjs)"), Sup("2"), P(")]"), Sup("0.5"), P("=0.75")}));
  // Marks at the very start and the very end.
  EXPECT_EQ(SplitMarkedText("<U>2</U>"), (Runs{Sup("2")}));
  EXPECT_EQ(SplitMarkedText("<L>G1</L>=S<U>2</U>"), (Runs{Sub("G1"), P("=S"), Sup("2")}));
  // The text between the marks is kept as it is.
  EXPECT_EQ(SplitMarkedText("a<L> b c </L>"), (Runs{P("a"), Sub(" b c ")}));
}

TEST(SplitMarkedText, LiteralLessThanJoinsTheLastRunWhateverItsKind) {
  EXPECT_EQ(SplitMarkedText("x<U>2</U><5"), (Runs{P("x"), Sup("2<"), P("5")}));
  EXPECT_EQ(SplitMarkedText("a<Lb"), (Runs{P("a<"), P("Lb")}));
  // A "<" at the very start with nothing before it becomes a run of its own.
  EXPECT_EQ(SplitMarkedText("<5"), (Runs{P("<"), P("5")}));
  EXPECT_EQ(SplitMarkedText("<"), (Runs{P("<")}));
  // Several in a row: each joins the run before it.
  EXPECT_EQ(SplitMarkedText("a<<<b"), (Runs{P("a<<<"), P("b")}));
  EXPECT_EQ(SplitMarkedText("<<"), (Runs{P("<<")}));
  EXPECT_EQ(SplitMarkedText("<L>i</L><<b"), (Runs{Sub("i<<"), P("b")}));
  // Too short to be a mark.
  EXPECT_EQ(SplitMarkedText("a<L"), (Runs{P("a<"), P("L")}));
}

TEST(SplitMarkedText, UnpairedAndEmptyMarks) {
  // An opening mark without its closing one is dropped; the rest reads on as plain text.
  EXPECT_EQ(SplitMarkedText("a<L>b"), (Runs{P("a"), P("b")}));
  EXPECT_EQ(SplitMarkedText("a<U>b<L>c</L>"), (Runs{P("a"), P("b"), Sub("c")}));
  // A closing mark alone is literal.
  EXPECT_EQ(SplitMarkedText("</L>"), (Runs{P("<"), P("/L>")}));
  EXPECT_EQ(SplitMarkedText("a</U>b"), (Runs{P("a<"), P("/U>b")}));
  // A closing mark of the other pair does not close.
  EXPECT_EQ(SplitMarkedText("<U>2</L>"), (Runs{P("2<"), P("/L>")}));
  // Empty pairs and the empty text give nothing.
  EXPECT_EQ(SplitMarkedText("<L></L>"), Runs{});
  EXPECT_EQ(SplitMarkedText("<U></U><L></L>"), Runs{});
  EXPECT_EQ(SplitMarkedText("a<U></U>b"), (Runs{P("a"), P("b")}));
  EXPECT_EQ(SplitMarkedText(""), Runs{});
  // Marks are case-sensitive: "<u>" is literal.
  EXPECT_EQ(SplitMarkedText("x<u>2</u>"), (Runs{P("x<"), P("u>2<"), P("/u>")}));
}

TEST(SplitMarkedText, MarksDoNotNest) {
  EXPECT_EQ(SplitMarkedText("<U>a<L>b</L></U>"), (Runs{Sup("a<L>b</L>")}));
  // The inner closing mark ends the outer pair when it is its own.
  EXPECT_EQ(SplitMarkedText("<L>a<L>b</L>c</L>"), (Runs{Sub("a<L>b"), P("c<"), P("/L>")}));
}

TEST(SplitMarkedText, TextWithoutMarksIsOnePlainRun) {
  const char* text = "\t自然平均功率因数cosφ1=0.75\n\t补偿后功率因数cosφ2=0.95\n";
  EXPECT_EQ(SplitMarkedText(text), (Runs{P(text)}));
  EXPECT_EQ(SplitMarkedText("a > b"), (Runs{P("a > b")}));
}
