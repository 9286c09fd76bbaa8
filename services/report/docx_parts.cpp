#include "services/report/docx_parts.h"

#include <vector>

#include "services/report/report_styles.h"
#include "services/report/xml_text.h"

namespace kestra::report {
namespace {

constexpr std::string_view kXmlDecl = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";
constexpr std::string_view kNsW = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";
constexpr std::string_view kNsR = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
constexpr std::string_view kRelBase = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";

// Page: A4 portrait; margins 2.54 cm top and bottom, 3.17 cm left and right (in twips).
constexpr std::string_view kSectionProperties =
    "<w:sectPr><w:headerReference w:type=\"default\" r:id=\"rIdHeader1\"/>"
    "<w:footerReference w:type=\"default\" r:id=\"rIdFooter1\"/>"
    "<w:pgSz w:w=\"11906\" w:h=\"16838\"/>"
    "<w:pgMar w:top=\"1440\" w:right=\"1800\" w:bottom=\"1440\" w:left=\"1800\" w:header=\"851\" "
    "w:footer=\"992\" w:gutter=\"0\"/><w:cols w:space=\"425\"/></w:sectPr>";

std::string_view JcValue(int alignment) {
  switch (alignment) {
    case kAlignCenter: return "center";
    case kAlignRight: return "right";
    case kAlignJustify: return "both";
    case kAlignDistribute: return "distribute";
    default: return "left";
  }
}

void AppendFontAttr(std::string& out, std::string_view attr, std::string_view font) {
  out += ' ';
  out += attr;
  out += "=\"";
  AppendXmlEscaped(out, font);
  out += '"';
}

// The document font as Word sets it on the whole story: one face for every script, so that
// digits, Latin letters and blanks take the same widths as the Chinese text around them.
void AppendDocumentFont(std::string& out, std::string_view font) {
  out += "<w:rFonts";
  for (std::string_view attr : {"w:ascii", "w:hAnsi", "w:eastAsia"}) AppendFontAttr(out, attr, font);
  out += "/>";
}

// One run: its properties, then its text cut at tabs and line breaks into <w:t>, <w:tab/> and
// <w:br/> (a vertical tab is Word's manual line break).
void AppendRun(std::string& out, const Run& run, std::string_view font) {
  out += "<w:r>";
  if (!font.empty() || run.kind != RunKind::kPlain) {
    out += "<w:rPr>";
    if (!font.empty()) AppendDocumentFont(out, font);
    if (run.kind == RunKind::kSuperscript) out += "<w:vertAlign w:val=\"superscript\"/>";
    if (run.kind == RunKind::kSubscript) out += "<w:vertAlign w:val=\"subscript\"/>";
    out += "</w:rPr>";
  }
  const std::string_view text = run.text;
  std::size_t start = 0;
  while (start <= text.size()) {
    const std::size_t brk = text.find_first_of("\t\v\n\r", start);
    const std::string_view piece = text.substr(start, brk == std::string_view::npos ? brk : brk - start);
    if (!piece.empty()) {
      out += "<w:t xml:space=\"preserve\">";
      AppendXmlEscaped(out, piece);
      out += "</w:t>";
    }
    if (brk == std::string_view::npos) break;
    out += text[brk] == '\t' ? "<w:tab/>" : "<w:br/>";
    start = brk + 1;
  }
  out += "</w:r>";
}

void AppendParagraph(std::string& out, const Paragraph& p, std::string_view font) {
  out += "<w:p>";
  const bool styled = p.style_id != "Normal";
  if (styled || p.alignment) {
    out += "<w:pPr>";
    if (styled) {
      out += "<w:pStyle w:val=\"";
      AppendXmlEscaped(out, p.style_id);
      out += "\"/>";
    }
    if (p.alignment) {
      out += "<w:jc w:val=\"";
      out += JcValue(*p.alignment);
      out += "\"/>";
    }
    out += "</w:pPr>";
  }
  for (const Run& r : p.runs) AppendRun(out, r, font);
  out += "</w:p>";
}

// The text width of the page above (A4 less both margins), in twips.
constexpr int kTextWidth = 11906 - 2 * 1800;

// A table cell: one centred paragraph of 9-point text, single-spaced; header cells bold on grey,
// marked rows bold on a light red.
void AppendCell(std::string& out, const std::string& text, int width, std::string_view fill, bool bold,
                std::string_view font) {
  out += "<w:tc><w:tcPr><w:tcW w:w=\"";
  out += std::to_string(width);
  out += "\" w:type=\"dxa\"/>";
  if (!fill.empty()) {
    out += "<w:shd w:val=\"clear\" w:color=\"auto\" w:fill=\"";
    out += fill;
    out += "\"/>";
  }
  out += "<w:vAlign w:val=\"center\"/></w:tcPr><w:p><w:pPr><w:spacing w:line=\"240\" w:lineRule=\"auto\"/>"
         "<w:jc w:val=\"center\"/><w:rPr><w:sz w:val=\"18\"/><w:szCs w:val=\"18\"/></w:rPr></w:pPr><w:r><w:rPr>";
  if (!font.empty()) AppendDocumentFont(out, font);
  if (bold) out += "<w:b/><w:bCs/>";
  out += "<w:sz w:val=\"18\"/><w:szCs w:val=\"18\"/></w:rPr><w:t xml:space=\"preserve\">";
  AppendXmlEscaped(out, text);
  out += "</w:t></w:r></w:p></w:tc>";
}

// A table across the text width with single black borders; header rows repeat on every page and
// no row is split between pages.
void AppendTable(std::string& out, const ReportTable& t, std::string_view font) {
  const std::size_t columns = t.rows.front().size();
  std::vector<int> widths(columns, kTextWidth / static_cast<int>(columns));
  if (t.widths.size() == columns) {
    long total = 0;
    for (int w : t.widths) total += w > 0 ? w : 1;
    for (std::size_t c = 0; c < columns; ++c) widths[c] = static_cast<int>((t.widths[c] > 0 ? t.widths[c] : 1) * long{kTextWidth} / total);
  }
  out += "<w:tbl><w:tblPr><w:tblW w:w=\"";
  out += std::to_string(kTextWidth);
  out += "\" w:type=\"dxa\"/><w:jc w:val=\"center\"/><w:tblBorders>";
  for (const char* side : {"top", "left", "bottom", "right", "insideH", "insideV"}) {
    out += "<w:";
    out += side;
    out += " w:val=\"single\" w:sz=\"4\" w:space=\"0\" w:color=\"000000\"/>";
  }
  out += "</w:tblBorders><w:tblLayout w:type=\"fixed\"/><w:tblCellMar><w:left w:w=\"57\" w:type=\"dxa\"/>"
         "<w:right w:w=\"57\" w:type=\"dxa\"/></w:tblCellMar></w:tblPr><w:tblGrid>";
  for (int w : widths) {
    out += "<w:gridCol w:w=\"";
    out += std::to_string(w);
    out += "\"/>";
  }
  out += "</w:tblGrid>";
  for (std::size_t r = 0; r < t.rows.size(); ++r) {
    const bool header = r < t.header_rows;
    const bool marked = r < t.marked.size() && t.marked[r];
    out += header ? "<w:tr><w:trPr><w:cantSplit/><w:tblHeader/></w:trPr>" : "<w:tr><w:trPr><w:cantSplit/></w:trPr>";
    for (std::size_t c = 0; c < columns; ++c) {
      AppendCell(out, t.rows[r][c], widths[c], header ? "D9D9D9" : (marked ? "F2DCDB" : ""), header || marked, font);
    }
    out += "</w:tr>";
  }
  out += "</w:tbl>";
}

std::string Utc(std::time_t t) {
  std::tm tm{};
  gmtime_r(&t, &tm);
  char buf[32];
  std::strftime(buf, sizeof buf, "%Y-%m-%dT%H:%M:%SZ", &tm);
  return buf;
}

}  // namespace

std::string ContentTypesXml() {
  std::string s(kXmlDecl);
  s += "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
       "<Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
       "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
       "<Override PartName=\"/word/document.xml\" ContentType=\"application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml\"/>"
       "<Override PartName=\"/word/styles.xml\" ContentType=\"application/vnd.openxmlformats-officedocument.wordprocessingml.styles+xml\"/>"
       "<Override PartName=\"/word/settings.xml\" ContentType=\"application/vnd.openxmlformats-officedocument.wordprocessingml.settings+xml\"/>"
       "<Override PartName=\"/word/header1.xml\" ContentType=\"application/vnd.openxmlformats-officedocument.wordprocessingml.header+xml\"/>"
       "<Override PartName=\"/word/footer1.xml\" ContentType=\"application/vnd.openxmlformats-officedocument.wordprocessingml.footer+xml\"/>"
       "<Override PartName=\"/docProps/core.xml\" ContentType=\"application/vnd.openxmlformats-package.core-properties+xml\"/>"
       "<Override PartName=\"/docProps/app.xml\" ContentType=\"application/vnd.openxmlformats-officedocument.extended-properties+xml\"/>"
       "</Types>";
  return s;
}

std::string PackageRelsXml() {
  std::string s(kXmlDecl);
  s += "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
       "<Relationship Id=\"rId1\" Type=\"";
  s += kRelBase;
  s += "officeDocument\" Target=\"word/document.xml\"/>"
       "<Relationship Id=\"rId2\" Type=\"http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties\" Target=\"docProps/core.xml\"/>"
       "<Relationship Id=\"rId3\" Type=\"";
  s += kRelBase;
  s += "extended-properties\" Target=\"docProps/app.xml\"/></Relationships>";
  return s;
}

std::string DocumentRelsXml() {
  std::string s(kXmlDecl);
  s += "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">";
  const auto rel = [&](std::string_view id, std::string_view type, std::string_view target) {
    s += "<Relationship Id=\"";
    s += id;
    s += "\" Type=\"";
    s += kRelBase;
    s += type;
    s += "\" Target=\"";
    s += target;
    s += "\"/>";
  };
  rel("rIdStyles", "styles", "styles.xml");
  rel("rIdSettings", "settings", "settings.xml");
  rel("rIdHeader1", "header", "header1.xml");
  rel("rIdFooter1", "footer", "footer1.xml");
  s += "</Relationships>";
  return s;
}

std::string DocumentXml(const ReportDocument& doc) {
  std::string s(kXmlDecl);
  std::size_t text_size = 0;
  for (const Paragraph& p : doc.paragraphs) {
    for (const Run& r : p.runs) text_size += r.text.size() + 120;
    text_size += 80;
  }
  for (const PlacedTable& t : doc.tables) {
    for (const auto& row : t.table.rows) {
      for (const std::string& cell : row) text_size += cell.size() + 400;
    }
  }
  s.reserve(text_size + 1024);
  s += "<w:document xmlns:w=\"";
  s += kNsW;
  s += "\" xmlns:r=\"";
  s += kNsR;
  s += "\"><w:body>";
  std::size_t next_table = 0;
  for (std::size_t i = 0; i < doc.paragraphs.size(); ++i) {
    for (; next_table < doc.tables.size() && doc.tables[next_table].before_paragraph <= i; ++next_table) {
      AppendTable(s, doc.tables[next_table].table, doc.document_font);
    }
    AppendParagraph(s, doc.paragraphs[i], doc.document_font);
  }
  s += kSectionProperties;
  s += "</w:body></w:document>";
  return s;
}

std::string StylesXml(const ReportDocument& doc) {
  std::string s(kXmlDecl);
  s += "<w:styles xmlns:w=\"";
  s += kNsW;
  // Body text: 12 pt (小四), 1.5 lines, justified as a Chinese Word's body text is.
  s += "\"><w:docDefaults><w:rPrDefault><w:rPr>";
  if (doc.document_font.empty()) {
    s += "<w:rFonts w:ascii=\"Times New Roman\" w:hAnsi=\"Times New Roman\"";
    AppendFontAttr(s, "w:eastAsia", kDefaultEastAsianFont);
    s += " w:cs=\"Times New Roman\"/>";
  } else {
    AppendDocumentFont(s, doc.document_font);
  }
  s += "<w:kern w:val=\"2\"/><w:sz w:val=\"24\"/><w:szCs w:val=\"24\"/>"
       "<w:lang w:val=\"en-US\" w:eastAsia=\"zh-CN\" w:bidi=\"ar-SA\"/></w:rPr></w:rPrDefault>"
       "<w:pPrDefault><w:pPr><w:spacing w:after=\"0\" w:line=\"360\" w:lineRule=\"auto\"/></w:pPr>"
       "</w:pPrDefault></w:docDefaults>";
  const StyleInfo& normal = *StyleById("Normal");
  const StyleInfo& h1 = *StyleById("Heading1");
  const StyleInfo& h2 = *StyleById("Heading2");
  s += "<w:style w:type=\"paragraph\" w:default=\"1\" w:styleId=\"Normal\"><w:name w:val=\"";
  s += normal.name;
  s += "\"/><w:qFormat/><w:pPr><w:widowControl w:val=\"0\"/><w:jc w:val=\"";
  s += JcValue(normal.default_alignment);
  s += "\"/></w:pPr></w:style>";
  // Headings: 黑体 bold, 18 pt (小二) centred for the title, 14 pt (四号) for the sections.
  const auto heading = [&](const StyleInfo& h, std::string_view spacing, int half_points) {
    s += "<w:style w:type=\"paragraph\" w:styleId=\"";
    s += h.id;
    s += "\"><w:name w:val=\"";
    s += h.name;
    s += "\"/><w:basedOn w:val=\"Normal\"/><w:next w:val=\"";
    s += h.next_id;
    s += "\"/><w:uiPriority w:val=\"9\"/><w:qFormat/><w:pPr><w:keepNext/><w:keepLines/>";
    s += spacing;
    s += "<w:jc w:val=\"";
    s += JcValue(h.default_alignment);
    s += "\"/><w:outlineLvl w:val=\"";
    s += std::to_string(h.outline_level);
    s += "\"/></w:pPr><w:rPr><w:rFonts";
    AppendFontAttr(s, "w:eastAsia", kHeadingEastAsianFont);
    s += "/><w:b/><w:bCs/><w:kern w:val=\"44\"/><w:sz w:val=\"";
    s += std::to_string(half_points);
    s += "\"/><w:szCs w:val=\"";
    s += std::to_string(half_points);
    s += "\"/></w:rPr></w:style>";
  };
  heading(h1, "<w:spacing w:before=\"240\" w:after=\"360\" w:line=\"240\" w:lineRule=\"auto\"/>", 36);
  heading(h2, "<w:spacing w:before=\"240\" w:after=\"120\" w:line=\"240\" w:lineRule=\"auto\"/>", 28);
  s += "<w:style w:type=\"character\" w:default=\"1\" w:styleId=\"DefaultParagraphFont\">"
       "<w:name w:val=\"Default Paragraph Font\"/><w:uiPriority w:val=\"1\"/><w:semiHidden/>"
       "<w:unhideWhenUsed/></w:style>"
       "<w:style w:type=\"paragraph\" w:styleId=\"Header\"><w:name w:val=\"header\"/>"
       "<w:basedOn w:val=\"Normal\"/><w:uiPriority w:val=\"99\"/><w:unhideWhenUsed/><w:pPr>"
       "<w:spacing w:line=\"240\" w:lineRule=\"auto\"/><w:jc w:val=\"center\"/></w:pPr>"
       "<w:rPr><w:sz w:val=\"18\"/><w:szCs w:val=\"18\"/></w:rPr></w:style>"
       "<w:style w:type=\"paragraph\" w:styleId=\"Footer\"><w:name w:val=\"footer\"/>"
       "<w:basedOn w:val=\"Normal\"/><w:uiPriority w:val=\"99\"/><w:unhideWhenUsed/><w:pPr>"
       "<w:spacing w:line=\"240\" w:lineRule=\"auto\"/><w:jc w:val=\"center\"/></w:pPr>"
       "<w:rPr><w:sz w:val=\"18\"/><w:szCs w:val=\"18\"/></w:rPr></w:style>"
       "</w:styles>";
  return s;
}

std::string SettingsXml() {
  // A tab stop every two characters of body text (24 pt), the usual first-line indent of a
  // Chinese paragraph, so that the reports' leading tabs indent as a designer expects.
  std::string s(kXmlDecl);
  s += "<w:settings xmlns:w=\"";
  s += kNsW;
  s += "\"><w:defaultTabStop w:val=\"480\"/><w:characterSpacingControl w:val=\"compressPunctuation\"/>"
       "<w:compat><w:compatSetting w:name=\"compatibilityMode\" w:uri=\"http://schemas.microsoft.com/office/word\" "
       "w:val=\"15\"/></w:compat><w:themeFontLang w:val=\"en-US\" w:eastAsia=\"zh-CN\"/></w:settings>";
  return s;
}

std::string HeaderXml(const ProjectInfo& project) {
  // The text width of the page (21 cm less the margins) in twips: the project takes what the
  // four short fields leave.
  constexpr int kTextWidth = 11906 - 1800 - 1800;
  constexpr int kShortField = 1350;
  const auto width = [](std::size_t field) { return field == 0 ? kTextWidth - 4 * kShortField : kShortField; };
  std::string s(kXmlDecl);
  s += "<w:hdr xmlns:w=\"";
  s += kNsW;
  s += "\" xmlns:r=\"";
  s += kNsR;
  s += "\"><w:tbl><w:tblPr><w:tblW w:w=\"";
  s += std::to_string(kTextWidth);
  s += "\" w:type=\"dxa\"/><w:jc w:val=\"center\"/><w:tblBorders>";
  for (const char* side : {"top", "left", "bottom", "right", "insideH", "insideV"}) {
    s += "<w:";
    s += side;
    s += " w:val=\"single\" w:sz=\"4\" w:space=\"0\" w:color=\"000000\"/>";
  }
  s += "</w:tblBorders><w:tblLayout w:type=\"fixed\"/><w:tblLook w:val=\"0000\"/></w:tblPr><w:tblGrid>";
  for (std::size_t i = 0; i < kProjectFields.size(); ++i) s += "<w:gridCol w:w=\"" + std::to_string(width(i)) + "\"/>";
  s += "</w:tblGrid>";
  const auto row = [&](const auto& text_of) {
    s += "<w:tr>";
    for (std::size_t i = 0; i < kProjectFields.size(); ++i) {
      s += "<w:tc><w:tcPr><w:tcW w:w=\"" + std::to_string(width(i)) + "\" w:type=\"dxa\"/></w:tcPr>"
           "<w:p><w:pPr><w:pStyle w:val=\"Header\"/></w:pPr>";
      const std::string_view text = text_of(i);
      if (!text.empty()) {
        s += "<w:r><w:t xml:space=\"preserve\">";
        AppendXmlEscaped(s, text);
        s += "</w:t></w:r>";
      }
      s += "</w:p></w:tc>";
    }
    s += "</w:tr>";
  };
  row([](std::size_t i) { return std::string_view(kProjectFields[i].key); });
  row([&](std::size_t i) { return std::string_view(project.values[i]); });
  // A header ends with a paragraph; this one is kept a few points high.
  s += "</w:tbl><w:p><w:pPr><w:pStyle w:val=\"Header\"/><w:spacing w:line=\"120\" w:lineRule=\"exact\"/></w:pPr></w:p>"
       "</w:hdr>";
  return s;
}

std::string FooterXml() {
  // "第 n 页 共 m 页", centred.
  std::string s(kXmlDecl);
  s += "<w:ftr xmlns:w=\"";
  s += kNsW;
  s += "\" xmlns:r=\"";
  s += kNsR;
  s += "\"><w:p><w:pPr><w:pStyle w:val=\"Footer\"/></w:pPr>"
       "<w:r><w:t xml:space=\"preserve\">第 </w:t></w:r>"
       "<w:fldSimple w:instr=\" PAGE \"><w:r><w:t>1</w:t></w:r></w:fldSimple>"
       "<w:r><w:t xml:space=\"preserve\"> 页 共 </w:t></w:r>"
       "<w:fldSimple w:instr=\" NUMPAGES \"><w:r><w:t>1</w:t></w:r></w:fldSimple>"
       "<w:r><w:t xml:space=\"preserve\"> 页</w:t></w:r></w:p></w:ftr>";
  return s;
}

std::string CorePropertiesXml(const PackageInfo& info) {
  const std::string when = Utc(info.created);
  std::string s(kXmlDecl);
  s += "<cp:coreProperties xmlns:cp=\"http://schemas.openxmlformats.org/package/2006/metadata/core-properties\" "
       "xmlns:dc=\"http://purl.org/dc/elements/1.1/\" xmlns:dcterms=\"http://purl.org/dc/terms/\" "
       "xmlns:dcmitype=\"http://purl.org/dc/dcmitype/\" "
       "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"><dc:title>";
  AppendXmlEscaped(s, info.title);
  s += "</dc:title><dc:creator>OrvelKestra</dc:creator><cp:lastModifiedBy>OrvelKestra</cp:lastModifiedBy>"
       "<dcterms:created xsi:type=\"dcterms:W3CDTF\">";
  s += when;
  s += "</dcterms:created><dcterms:modified xsi:type=\"dcterms:W3CDTF\">";
  s += when;
  s += "</dcterms:modified></cp:coreProperties>";
  return s;
}

std::string AppPropertiesXml() {
  std::string s(kXmlDecl);
  s += "<Properties xmlns=\"http://schemas.openxmlformats.org/officeDocument/2006/extended-properties\" "
       "xmlns:vt=\"http://schemas.openxmlformats.org/officeDocument/2006/docPropsVTypes\">"
       "<Application>OrvelKestra</Application><DocSecurity>0</DocSecurity></Properties>";
  return s;
}

}  // namespace kestra::report
