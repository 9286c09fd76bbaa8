#include "host/qt/rich_text_document.h"

#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>

#include "host/qt/font_map.h"

namespace kestra::qt {

namespace {

Qt::Alignment AlignmentOf(int align) {
  switch (align) {
    case 1: return Qt::AlignHCenter;
    case 2: return Qt::AlignRight;
    case 3: return Qt::AlignJustify;
    default: return Qt::AlignLeft;
  }
}

// Points to pixels at the 96 dots per inch the dialogs are laid out for, so the page
// looks the same whatever the screen reports.
double PixelsOfPoints(double pt) { return pt * 96.0 / 72.0; }

}  // namespace

void FillTextDocument(QTextDocument& doc, const ui::RichDocument& rich) {
  doc.clear();
  QTextCursor cursor(&doc);
  bool first = true;
  for (const ui::RichParagraph& p : rich.paragraphs) {
    QTextBlockFormat block;
    block.setAlignment(AlignmentOf(p.align));
    block.setLeftMargin(PixelsOfPoints(p.left_indent_pt));
    block.setTextIndent(PixelsOfPoints(p.first_indent_pt));
    if (first) {
      cursor.setBlockFormat(block);
      first = false;
    } else {
      cursor.insertBlock(block);
    }
    for (const ui::RichRun& r : p.runs) {
      QTextCharFormat f;
      if (!r.font.empty()) {
        ui::Font face;
        face.face = r.font;
        f.setFontFamilies({FontFor(face).family()});
      }
      f.setFontWeight(r.bold ? QFont::Bold : QFont::Normal);
      f.setFontItalic(r.italic);
      f.setFontUnderline(r.underline);
      if (r.size_pt > 0) {
        QFont sized = f.font();
        sized.setPixelSize(static_cast<int>(PixelsOfPoints(r.size_pt) + 0.5));
        f.setFont(sized, QTextCharFormat::FontPropertiesSpecifiedOnly);
      }
      if (r.script == 1) f.setVerticalAlignment(QTextCharFormat::AlignSubScript);
      if (r.script == 2) f.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
      cursor.insertText(QString::fromStdString(r.text), f);
    }
  }
}

bool SameRichDocument(const ui::RichDocument& a, const ui::RichDocument& b) {
  if (a.paragraphs.size() != b.paragraphs.size()) return false;
  for (std::size_t i = 0; i < a.paragraphs.size(); ++i) {
    const auto& pa = a.paragraphs[i];
    const auto& pb = b.paragraphs[i];
    if (pa.align != pb.align || pa.first_indent_pt != pb.first_indent_pt || pa.left_indent_pt != pb.left_indent_pt ||
        pa.runs.size() != pb.runs.size())
      return false;
    for (std::size_t k = 0; k < pa.runs.size(); ++k) {
      const auto& ra = pa.runs[k];
      const auto& rb = pb.runs[k];
      if (ra.text != rb.text || ra.bold != rb.bold || ra.italic != rb.italic || ra.underline != rb.underline ||
          ra.script != rb.script || ra.size_pt != rb.size_pt || ra.font != rb.font)
        return false;
    }
  }
  return true;
}

}  // namespace kestra::qt
