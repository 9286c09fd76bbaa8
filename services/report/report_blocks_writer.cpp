#include "services/report/report_blocks_writer.h"

namespace kestra::report {

void WriteBlocks(ReportWriter& w, const Blocks& blocks) {
  for (const Block& b : blocks) {
    switch (b.kind) {
      case BlockKind::Title: w.TitleBlock(b.text); break;
      case BlockKind::Heading: w.SectionHeading(b.text); break;
      case BlockKind::PlainTitle: w.TitleBlock(b.text, TextMode::kPlain); break;
      case BlockKind::PlainHeading: w.SectionHeading(b.text, TextMode::kPlain); break;
      case BlockKind::Body: w.BodyBlock(b.text); break;
      case BlockKind::BodyEnd: w.BodyBlock(b.text, BlockEnd::kEndsReport); break;
      case BlockKind::Plain: w.InsertPlainRun(b.text); break;
      case BlockKind::NewParagraph: w.NewParagraph(); break;
      case BlockKind::DocumentFont: w.SetDocumentFont(b.text); break;
      case BlockKind::HeaderDone: w.MarkHeaderDone(); break;
    }
  }
}

bool WriteReport(ReportTarget& target, const std::function<void(const std::string&)>& show_message,
                 const Blocks& blocks, const ReportRunOptions& options) {
  return RunReport(target, show_message, [&blocks](ReportWriter& w) { WriteBlocks(w, blocks); }, options);
}

}  // namespace kestra::report
