// The .docx package at the level of its parts and XML: what Word needs to open it, the built-in
// heading styles, the document font. What readers make of the paragraphs, runs and page is
// checked by independent readers (check_docx_readers.sh).
#include <gtest/gtest.h>

#include <regex>

#include "services/report/docx_package.h"
#include "services/report/xml_text.h"
#include "tests/report/report_folder_test.h"
#include "tests/report/sample_report.h"
#include "tests/report/zip_reader.h"

namespace fs = std::filesystem;
using kestra::report::testing::ReadZipMember;
using kestra::report::testing::ZipMemberNames;

namespace {

// The <w:style> element with this id.
std::string StyleElement(const std::string& styles_xml, const std::string& id) {
  const std::regex re("<w:style [^>]*w:styleId=\"" + id + "\">.*?</w:style>");
  std::smatch m;
  return std::regex_search(styles_xml, m, re) ? m[0].str() : std::string();
}

bool Has(const std::string& hay, const std::string& needle) { return hay.find(needle) != std::string::npos; }

class DocxTest : public kestra::report::testing::ReportFolderTest {
 protected:
  // Packs the writer's document and opens the package again as a reader would.
  std::string Pack(const ReportWriter& w) {
    const std::string path = (dir_ / "r.docx").string();
    fs::remove(path);
    std::ofstream(path, std::ios::binary) << kestra::report::DocxBytes(w.Document(), 1795000000);
    return path;
  }
  // The sample report, packed; the writer is kept for tests that change it further.
  std::string PackSample() {
    sample_.OpenReport();
    kestra::report::testing::WriteSampleReport(sample_);
    return Pack(sample_);
  }
  std::string Member(const std::string& path, const std::string& name) {
    const std::optional<std::string> data = ReadZipMember(path, name);
    EXPECT_TRUE(data.has_value()) << name;
    return data.value_or("");
  }

  // Expects every needle in hay.
  static void ExpectAll(const std::string& hay, std::initializer_list<const char*> needles, const char* where) {
    for (const char* n : needles) EXPECT_TRUE(Has(hay, n)) << where << " lacks " << n;
  }

  ReportWriter sample_;
};

}  // namespace

TEST_F(DocxTest, PackageHoldsThePartsWordNeeds) {
  const std::string path = PackSample();
  const std::vector<std::string> names = ZipMemberNames(path);
  ASSERT_FALSE(names.empty()) << "not a readable zip";
  EXPECT_EQ(names[0], "[Content_Types].xml");
  for (const char* n : {"_rels/.rels", "word/document.xml", "word/_rels/document.xml.rels", "word/styles.xml",
                        "word/settings.xml", "word/footer1.xml", "docProps/core.xml", "docProps/app.xml"}) {
    EXPECT_NE(std::find(names.begin(), names.end(), n), names.end()) << n;
  }
  ExpectAll(Member(path, "[Content_Types].xml"),
            {"PartName=\"/word/document.xml\" ContentType=\"application/"
             "vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml\""},
            "types");
  ExpectAll(Member(path, "_rels/.rels"), {"Target=\"word/document.xml\""}, ".rels");
  ExpectAll(Member(path, "word/_rels/document.xml.rels"), {"relationships/styles\" Target=\"styles.xml\""}, "rels");
  ExpectAll(Member(path, "docProps/core.xml"),
            {"<dc:title>无功功率补偿计算书</dc:title>", ">2026-11-18T11:06:40Z</dcterms:created>"}, "core");
}

TEST_F(DocxTest, HeadingsAreWordsBuiltInHeadings) {
  const std::string path = PackSample();
  const std::string styles = Member(path, "word/styles.xml");
  ExpectAll(StyleElement(styles, "Heading1"),
            {"<w:name w:val=\"heading 1\"/>", "<w:outlineLvl w:val=\"0\"/>", "<w:next w:val=\"Normal\"/>",
             "<w:jc w:val=\"center\"/>", "<w:b/>"},
            "Heading1");
  ExpectAll(StyleElement(styles, "Heading2"),
            {"<w:name w:val=\"heading 2\"/>", "<w:outlineLvl w:val=\"1\"/>", "<w:next w:val=\"Normal\"/>"},
            "Heading2");
  ExpectAll(StyleElement(styles, "Normal"), {"w:default=\"1\""}, "Normal");
  // Chinese body text by default: 宋体, zh-CN.
  ExpectAll(styles, {"w:eastAsia=\"宋体\"", "<w:lang w:val=\"en-US\" w:eastAsia=\"zh-CN\""}, "styles");
}

TEST_F(DocxTest, DocumentFontGoesOnEveryRunAndTheDefaults) {
  PackSample();
  sample_.SetDocumentFont("仿宋");
  const std::string path = Pack(sample_);
  const std::string doc = Member(path, "word/document.xml");
  const auto count = [&](const std::string& s) {
    std::size_t n = 0;
    for (std::size_t at = doc.find(s); at != std::string::npos; at = doc.find(s, at + 1)) ++n;
    return n;
  };
  EXPECT_GT(count("<w:r>"), 20u);
  // The whole font, as a word processor sets it: Latin letters and digits too.
  const std::string fonts = "<w:rFonts w:ascii=\"仿宋\" w:hAnsi=\"仿宋\" w:eastAsia=\"仿宋\"/>";
  EXPECT_EQ(count("<w:r><w:rPr>" + fonts), count("<w:r>"));
  const std::string styles = Member(path, "word/styles.xml");
  EXPECT_TRUE(Has(styles, "<w:rPrDefault><w:rPr>" + fonts));
  EXPECT_FALSE(Has(styles, "Times New Roman"));
}

TEST(XmlText, EscapesAndDropsWhatXmlForbids) {
  using kestra::report::XmlEscaped;
  EXPECT_EQ(XmlEscaped("a<b>&\"c'"), "a&lt;b&gt;&amp;&quot;c'");
  EXPECT_EQ(XmlEscaped("a\x01\x08\x1f" "b\t\n\r"), "ab\t\n\r");
  EXPECT_EQ(XmlEscaped("x\xEF\xBF\xBFy\xEF\xBF\xBEz"), "xyz");  // U+FFFF, U+FFFE
  EXPECT_EQ(XmlEscaped("cosφ 宋体 \xF0\x9F\x98\x80"), "cosφ 宋体 \xF0\x9F\x98\x80");
  // Bytes that are not UTF-8 (a GBK text, a cut sequence, a surrogate, an overlong "<").
  EXPECT_EQ(XmlEscaped("\xCB\xCE!"), "\xEF\xBF\xBD\xEF\xBF\xBD!");
  EXPECT_EQ(XmlEscaped("a\xE5\xAE"), "a\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(XmlEscaped("\xED\xA0\x80"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(XmlEscaped("\xC0\xBC"), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST_F(DocxTest, ControlCharactersInReportTextStayOutOfTheXml) {
  ReportWriter w;
  w.OpenReport();
  w.BodyBlock("a\x01" "b\vc\x0c" "d", kestra::report::BlockEnd::kEndsReport);
  // A vertical tab is Word's manual line break; other controls are left out.
  EXPECT_TRUE(Has(Member(Pack(w), "word/document.xml"), ">ab</w:t><w:br/><w:t xml:space=\"preserve\">cd</w:t>"));
}
