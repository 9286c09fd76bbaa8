// The slide reader: our own library against an independent reader (netpbm's sldtoppm), every
// record kind in both byte orders, and damaged files.
#include "ui/slide_library.h"

#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

#include <cstdio>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace std::string_literals;
using Line = ui::VectorPicture::Line;
using Fill = ui::VectorPicture::Fill;

const std::string kLibrary = std::string(KESTRA_ROOT_DIR) + "/Image/djqd.slb";

std::string Output(const std::string& command) {
  std::string out;
  if (FILE* p = popen(command.c_str(), "r")) {
    char buf[4096];
    for (std::size_t n; (n = fread(buf, 1, sizeof buf, p)) > 0;) out.append(buf, n);
    pclose(p);
  }
  return out;
}

// What sldtoppm -verbose lists of a slide, in slide coordinates (y upwards).
struct Listing {
  int width = 0, height = 0;
  std::vector<Line> lines;
  std::vector<Fill> fills;
};

Listing SldtoppmListing(const std::string& name) {
  Listing l;
  std::istringstream in(Output("sldtoppm -verbose -Lib " + name + " " + kLibrary + " 2>&1 >/dev/null"));
  for (std::string s; std::getline(in, s);) {
    Line v{};
    Fill f{};
    int n = 0, type = 0;
    ui::VectorPicture::Point pt{};
    if (std::sscanf(s.c_str(), "sldtoppm: Original screen size %dx%d", &l.width, &l.height) == 2) continue;
    if (std::sscanf(s.c_str(), "sldtoppm: Vector (%d, %d) - (%d, %d) Color %d", &v.x1, &v.y1, &v.x2, &v.y2, &v.color) == 5)
      l.lines.push_back(v);
    else if (std::sscanf(s.c_str(), "sldtoppm: Polygon: %d points, fill type %d, color %d", &n, &type, &f.color) == 3)
      l.fills.push_back(f);
    else if (std::sscanf(s.c_str(), "sldtoppm: Point %d: (%d, %d)", &n, &pt.x, &pt.y) == 3 && !l.fills.empty())
      l.fills.back().points.push_back(pt);
  }
  return l;
}

TEST(SlideLibrary, OurLibraryReadsAsAnIndependentReaderReadsIt) {
  ui::CSlideLibraryData lib;
  ASSERT_EQ(lib.Read(kLibrary), 4) << lib.error();
  const std::vector<std::string> names = {"Jsdl1", "Jsdl2", "Jsdl3", "Jsdl4"};
  EXPECT_EQ(Output("sldtoppm -dir " + kLibrary + " 2>&1"),
            "sldtoppm: Slides in library:\nsldtoppm:   Jsdl1\nsldtoppm:   Jsdl2\nsldtoppm:   Jsdl3\nsldtoppm:   Jsdl4\n");
  for (int i = 0; i < 4; ++i) {
    SCOPED_TRACE(names[i]);
    const ui::VectorPicture* pic = lib.GetPicture(i);
    ASSERT_NE(pic, nullptr);
    EXPECT_EQ(pic->name, names[i]);
    EXPECT_EQ(lib.FindSlide(names[i]), i);
    // Back to slide coordinates, then the same vectors and fills in the same order.
    Listing ours{pic->width, pic->height, pic->lines, pic->fills};
    auto up = [&](int y) { return pic->height - 1 - y; };
    for (Line& v : ours.lines) v.y1 = up(v.y1), v.y2 = up(v.y2);
    for (Fill& f : ours.fills) {
      f.first_line = 0;
      for (auto& p : f.points) p.y = up(p.y);
    }
    const Listing theirs = SldtoppmListing(names[i]);
    EXPECT_EQ(ours.width, theirs.width);
    EXPECT_EQ(ours.height, theirs.height);
    EXPECT_GT(theirs.lines.size(), 50u);
    EXPECT_EQ(ours.lines, theirs.lines);
    EXPECT_FALSE(theirs.fills.empty());  // the bus bar at least
    EXPECT_EQ(ours.fills, theirs.fills);
  }
  EXPECT_EQ(lib.FindSlide("JSDL3"), 2) << "names in capitals, as CAD tools store them";
  EXPECT_EQ(lib.FindSlide("Jsdl5"), -1);
  EXPECT_EQ(lib.GetPicture(4), nullptr);
}

// A slide of 100 x 50 pixels, written in either byte order, record by record.
struct SlideBytes {
  explicit SlideBytes(bool big) : big(big) {
    s.assign("AutoCAD Slide\r\n\x1a\0", 17);
    Bytes({0x56, 2});
    Word(99);
    Word(49);
    Bytes({0x00, 0x2D, 0x31, 0x01});  // aspect 2.0: 20000000 = 0x01312D00, low byte first
    Word(0);
    Word(0x1234);
  }
  void Word(int v) {
    v &= 0xFFFF;
    Bytes(big ? std::vector<int>{v >> 8, v & 0xFF} : std::vector<int>{v & 0xFF, v >> 8});
  }
  void Bytes(std::vector<int> bs) {
    for (int b : bs) s += static_cast<char>(b & 0xFF);
  }
  void Record(int kind, int low) { Word(kind << 8 | (low & 0xFF)); }
  bool big;
  std::string s;
};

std::string EveryRecordKind(bool big) {
  SlideBytes b(big);
  b.Record(0xFF, 1);                 // colour 1
  for (int v : {10, 10, 50, 10}) b.Word(v);  // vector (10,10)-(50,10); last point (10,10)
  b.Record(0xFE, 5);                 // common endpoint +5,+20: (15,30)-(10,10); last (15,30)
  b.Bytes({20});
  b.Record(0xFB, 3);                 // offset vector: (15+3,30+4)-(15+30,30-5); last (18,34)
  b.Bytes({4, 30, -5});
  b.Record(0xFF, 3);
  b.Record(0xFD, 0);                 // fill start (vertex count, y < 0), three vertices, end
  b.Word(3);
  b.Word(-1);
  for (auto [x, y] : {std::pair{60, 10}, {90, 10}, {75, 40}}) {
    b.Record(0xFD, 0);
    b.Word(x);
    b.Word(y);
  }
  b.Record(0xFD, 0);
  b.Word(0);
  b.Word(-1);
  b.Record(0xFE, -2);                // common endpoint -2,-4 from (18,34): (16,30)-(18,34)
  b.Bytes({-4});
  b.Record(0xFC, 0);
  return b.s;
}

TEST(SlideLibrary, EveryRecordKindInBothByteOrders) {
  // Picture y = 49 - slide y.
  const std::vector<Line> lines = {{10, 39, 50, 39, 1}, {15, 19, 10, 39, 1}, {18, 15, 45, 24, 1}, {16, 19, 18, 15, 3}};
  const std::vector<Fill> fills = {{{{60, 39}, {90, 39}, {75, 9}}, 3, 3}};
  for (bool big : {false, true}) {
    SCOPED_TRACE(big ? "high byte first" : "low byte first");
    ui::CSlideLibraryData lib;
    ASSERT_EQ(lib.ReadBytes(EveryRecordKind(big), "Single"), 1) << lib.error();
    const ui::VectorPicture& pic = *lib.GetPicture(0);
    EXPECT_EQ(pic.name, "Single");
    EXPECT_EQ(pic.width, 100);
    EXPECT_EQ(pic.height, 50);
    EXPECT_DOUBLE_EQ(pic.aspect, 2.0);
    EXPECT_EQ(pic.lines, lines);
    EXPECT_EQ(pic.fills, fills);
  }
}

std::string Library(const std::vector<std::pair<std::string, std::uint32_t>>& entries, const std::string& tail) {
  std::string s("AutoCAD Slide Library 1.0\r\n\x1a\0\0\0\0", 32);
  for (const auto& [name, offset] : entries) {
    std::string e = name;
    e.resize(32, '\0');
    for (int i = 0; i < 4; ++i) e += static_cast<char>(offset >> (8 * i) & 0xFF);
    s += e;
  }
  return s + tail;
}

TEST(SlideLibrary, DamagedFilesFailWithTheirReason) {
  const std::string good = EveryRecordKind(false);
  auto with_byte = [&](std::size_t at, int v) {
    std::string s = good;
    s[at] = static_cast<char>(v);
    return s;
  };
  const std::string no_end = good.substr(0, good.size() - 2);
  const std::string dir_end(36, '\0');
  const std::pair<std::string, std::string> cases[] = {
      {"", "not a slide library or slide"},
      {good.substr(0, 25), "the slide header cut short at byte 0"},
      {with_byte(18, 1), "type 86 level 1 at byte 0; only level 2"},
      {with_byte(29, 0x35), "an unknown byte order (test number) at byte 29"},
      {no_end, "the slide before its end record cut short at byte " + std::to_string(no_end.size())},
      {good.substr(0, 35), "a vector cut short at byte 33"},
      {good.substr(0, 33) + "\x00\x80"s, "an unknown record 128 at byte 33"},
      {good.substr(0, 31) + "\x00\xFD\x01\x00\x01\x00"s + good.substr(31), "a solid fill vertex outside a fill at byte 31"},
      {good.substr(0, 31) + "\x00\xFD\x01\x00\xFF\xFF\x00\xFC"s, "a solid fill left open at byte 37"},
      {Library({}, dir_end), "the slide library holds no slides"},
      {Library({{"A", 104}}, ""), "the slide directory cut short at byte 68"},
      {Library({{"A", 104}}, dir_end + good.substr(0, 40)), "slide A: a vector cut short"},
      {Library({{"A", 140}, {"B", 9999}}, dir_end + good), "slide B: the slide header cut short at byte 9999"},
  };
  for (const auto& [bytes, reason] : cases) {
    ui::CSlideLibraryData lib;
    EXPECT_EQ(lib.ReadBytes(bytes, "x"), 0) << reason;
    EXPECT_NE(lib.error().find(reason), std::string::npos) << lib.error();
    EXPECT_EQ(lib.GetPicture(0), nullptr);
  }
  ui::CSlideLibraryData lib;
  EXPECT_EQ(lib.Read("/nonexistent/djqd.slb"), 0);
  EXPECT_NE(lib.error().find("/nonexistent/djqd.slb"), std::string::npos) << lib.error();
}

// Every cut of the real library fails cleanly (its last slide ends with the file), and
// garbled copies never crash or hang: they read or fail with a reason.
TEST(SlideLibrary, TruncatedAndGarbledLibrariesNeverCrash) {
  const std::string file = kestra::testing::ReadFile(kLibrary);
  ASSERT_GT(file.size(), 1000u);
  ui::CSlideLibraryData lib;
  for (std::size_t n = 0; n < file.size(); ++n) {
    ASSERT_EQ(lib.ReadBytes(std::string_view(file).substr(0, n), "x"), 0) << n;
    ASSERT_FALSE(lib.error().empty());
  }
  std::mt19937 rng(11);
  for (int round = 0; round < 2000; ++round) {
    std::string bad = file;
    for (int k = 0; k < 1 + round % 8; ++k) bad[rng() % bad.size()] = static_cast<char>(rng());
    if (lib.ReadBytes(bad, "x") == 0) {
      ASSERT_FALSE(lib.error().empty());
    }
  }
}

}  // namespace
