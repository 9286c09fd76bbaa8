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

TEST(SplitMarkedText, EveryCaseOfTheMarks) {
  const char* const kNoMarks = "\t自然平均功率因数cosφ1=0.75\n\t补偿后功率因数cosφ2=0.95\n";
  const std::pair<const char*, Runs> cases[] = {
      // Mark pairs make script runs, also at the very start and end, keeping the text inside.
      {"P<L>js</L>=", {P("P"), Sub("js"), P("=")}},
      {"(βQjs/αPjs)<U>2</U>)]<U>0.5</U>=0.75", {P("(βQjs/αPjs)"), Sup("2"), P(")]"), Sup("0.5"), P("=0.75")}},
      {"<U>2</U>", {Sup("2")}},
      {"<L>G1</L>=S<U>2</U>", {Sub("G1"), P("=S"), Sup("2")}},
      {"a<L> b c </L>", {P("a"), Sub(" b c ")}},
      // A literal "<" joins the last run whatever its kind; at the start it is a run of its own.
      {"x<U>2</U><5", {P("x"), Sup("2<"), P("5")}},
      {"a<Lb", {P("a<"), P("Lb")}},
      {"<5", {P("<"), P("5")}},
      {"<", {P("<")}},
      {"a<<<b", {P("a<<<"), P("b")}},
      {"<<", {P("<<")}},
      {"<L>i</L><<b", {Sub("i<<"), P("b")}},
      {"a<L", {P("a<"), P("L")}},  // too short to be a mark
      // An opening mark without its closing one is dropped; a closing mark alone is literal,
      // and one of the other pair does not close.
      {"a<L>b", {P("a"), P("b")}},
      {"a<U>b<L>c</L>", {P("a"), P("b"), Sub("c")}},
      {"</L>", {P("<"), P("/L>")}},
      {"a</U>b", {P("a<"), P("/U>b")}},
      {"<U>2</L>", {P("2<"), P("/L>")}},
      // Empty pairs and the empty text give nothing.
      {"<L></L>", {}},
      {"<U></U><L></L>", {}},
      {"a<U></U>b", {P("a"), P("b")}},
      {"", {}},
      {"x<u>2</u>", {P("x<"), P("u>2<"), P("/u>")}},  // marks are case-sensitive
      // Marks do not nest; the inner closing mark ends the outer pair when it is its own.
      {"<U>a<L>b</L></U>", {Sup("a<L>b</L>")}},
      {"<L>a<L>b</L>c</L>", {Sub("a<L>b"), P("c<"), P("/L>")}},
      // Text without marks is one plain run.
      {kNoMarks, {P(kNoMarks)}},
      {"a > b", {P("a > b")}},
  };
  for (const auto& [text, runs] : cases) EXPECT_EQ(SplitMarkedText(text), runs) << text;
}
