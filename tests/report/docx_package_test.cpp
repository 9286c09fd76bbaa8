#include <gtest/gtest.h>

#include <regex>
#include <tuple>

#include "services/report/docx_package.h"
#include "services/report/xml_text.h"
#include "tests/report/report_folder_test.h"
#include "tests/report/sample_report.h"
#include "tests/report/zip_reader.h"

namespace fs = std::filesystem;
using kestra::report::testing::ReadZipMember;
using kestra::report::testing::ZipMemberNames;

namespace {

// What a reader sees of one paragraph of word/document.xml.
struct ParaView {
  std::string style;  // pStyle, empty for Normal
  std::string jc;
  std::string text;   // <w:t> texts, <w:tab/> as "\t"
  std::string xml;
};

std::vector<ParaView> Paragraphs(const std::string& document_xml) {
  std::vector<ParaView> out;
  static const std::regex para("<w:p>(.*?)</w:p>");
  static const std::regex piece("<w:t(?: [^>]*)?>([^<]*)</w:t>|<w:tab/>");
  static const std::regex style("<w:pStyle w:val=\"([^\"]*)\"/>");
  static const std::regex jc("<w:jc w:val=\"([^\"]*)\"/>");
  for (std::sregex_iterator it(document_xml.begin(), document_xml.end(), para), end; it != end; ++it) {
    ParaView v;
    v.xml = (*it)[1];
    std::smatch m;
    if (std::regex_search(v.xml, m, style)) v.style = m[1];
    if (std::regex_search(v.xml, m, jc)) v.jc = m[1];
    for (std::sregex_iterator p(v.xml.begin(), v.xml.end(), piece); p != end; ++p) {
      v.text += (*p)[0].str() == "<w:tab/>" ? std::string("\t") : (*p)[1].str();
    }
    out.push_back(v);
  }
  return out;
}

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
  ExpectAll(Member(path, "word/document.xml"), {"<w:pgSz w:w=\"11906\" w:h=\"16838\"/>"}, "A4 page");
}

TEST_F(DocxTest, ParagraphsRunsTabsAndScripts) {
  const std::vector<ParaView> p = Paragraphs(Member(PackSample(), "word/document.xml"));
  ASSERT_EQ(p.size(), 18u);
  using View = std::tuple<std::string, std::string, std::string>;  // style, alignment, text
  const auto view = [](const ParaView& v) { return View{v.style, v.jc, v.text}; };
  EXPECT_EQ(view(p[0]), View("Heading1", "center", "无功功率补偿计算书"));
  EXPECT_EQ(view(p[1]), View("Heading2", "left", "计算依据"));
  // Normal after a heading, with no alignment of its own.
  EXPECT_EQ(view(p[2]), View("", "", "\t《民用建筑电气设计手册》（湖南电气情报网编）p94 公式2.6.2-4,2.6.2-5"));
  EXPECT_TRUE(Has(p[2].xml, "<w:tab/><w:t xml:space=\"preserve\">《民用"));
  // The four lines of the known conditions: four body paragraphs.
  EXPECT_EQ(p[3].text, "已知条件");
  for (int i = 4; i <= 7; ++i) EXPECT_EQ(p[i].style, "") << i;
  EXPECT_EQ(p[5].text, "\t补偿后功率因数cosφ2=0.95");
  EXPECT_EQ(p[7].text, "\t有功计算负荷Pjs =1000.00kW");
  EXPECT_TRUE(Has(p[7].xml, "<w:r><w:rPr><w:vertAlign w:val=\"subscript\"/></w:rPr>"
                            "<w:t xml:space=\"preserve\">js</w:t></w:r>"));
  EXPECT_EQ(p[10].text, "\tcosφ1=[1/(1+(Wrm/Wm)2 )]0.5 =[1/(1+(882.00/1000.00)2 )]0.5 =0.75");
  const std::regex sup("<w:vertAlign w:val=\"superscript\"/></w:rPr><w:t xml:space=\"preserve\">([^<]*)</w:t>");
  std::vector<std::string> sups;
  for (std::sregex_iterator it(p[10].xml.begin(), p[10].xml.end(), sup), end; it != end; ++it) sups.push_back((*it)[1]);
  EXPECT_EQ(sups, (std::vector<std::string>{"2", "0.5", "2", "0.5"}));
  // Literal marks and XML's own characters come out escaped.
  EXPECT_EQ(p[13].text, "\t校验: x2&lt; 5 &amp; a&lt;Lb &quot;引号&quot;");
  EXPECT_EQ(p[14].style, "Heading2");
  EXPECT_EQ(p[17].text, "\t并联电容器数量=14");
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
  const std::vector<ParaView> p = Paragraphs(Member(Pack(w), "word/document.xml"));
  ASSERT_EQ(p.size(), 1u);
  // A vertical tab is Word's manual line break; other controls are left out.
  EXPECT_TRUE(Has(p[0].xml, ">ab</w:t><w:br/><w:t xml:space=\"preserve\">cd</w:t>"));
}
