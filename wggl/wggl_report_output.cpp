#include "wggl/wggl_report_output.h"

#include "services/report/report_run.h"
#include "services/report/report_target.h"
#include "services/report/report_writer.h"
#include "ui/ui_host.h"
#include "wggl/wggl_report.h"

namespace kestra::wggl {
namespace {

// The dialog host decides where a report goes and shows it when written.
class HostReportTarget : public report::ReportTarget {
 public:
  std::optional<std::string> NewReportPath(std::string_view title) override {
    ui::UiHost* host = ui::CurrentHost();
    return host ? host->NewReportPath(title) : std::nullopt;
  }
  void ShowReport(const std::string& path) override {
    if (ui::UiHost* host = ui::CurrentHost()) host->ShowReport(path);
  }
};

// Plays the blocks onto the writer in order. (The report service is to offer this for every
// calculator as kestra::report::WriteReport(target, show_message, blocks); this is the one
// call site to switch over when it does.)
void WriteBlocks(ReportWriter& w, const report::Blocks& blocks) {
  using report::BlockKind;
  for (const report::Block& b : blocks) {
    switch (b.kind) {
      case BlockKind::Title: w.TitleBlock(b.text); break;
      case BlockKind::Heading: w.SectionHeading(b.text); break;
      case BlockKind::Body: w.BodyBlock(b.text); break;
      case BlockKind::BodyEnd: w.BodyBlock(b.text, report::BlockEnd::kEndsReport); break;
      case BlockKind::Plain: w.InsertPlainRun(b.text); break;
      case BlockKind::NewParagraph: w.NewParagraph(); break;
      case BlockKind::DocumentFont: w.SetDocumentFont(b.text); break;
      case BlockKind::HeaderDone: w.MarkHeaderDone(); break;
    }
  }
}

}  // namespace

void OutputWgglReport(const report::Blocks& blocks, const std::function<void(const std::string&)>& show_message) {
  HostReportTarget target;
  report::ReportRunOptions options;
  options.title = kWgglReportTitle;
  report::RunReport(target, show_message, [&](ReportWriter& w) { WriteBlocks(w, blocks); }, options);
}

}  // namespace kestra::wggl
