#pragma once
// A host without windows: modal dialogs are driven by a driver function (the script
// runner, or a test), and everything a designer would see goes to a transcript:
//   [dialog] CAPTION / [message] CAPTION: TEXT / [report] PATH / [closed] CAPTION OK|Cancel
#include <deque>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "ui/dialog.h"
#include "ui/ui_host.h"

namespace ui {

class HeadlessHost : public UiHost {
 public:
  // Called for every modal dialog once it is created; acts on it until it ends or the
  // driver has nothing more to do (the dialog is then cancelled, as closing its window).
  using Driver = std::function<void(Dialog&)>;

  explicit HeadlessHost(std::ostream& transcript);

  void SetDriver(Driver d) { driver_ = std::move(d); }
  // Drivers queued for the next modal dialogs, one each, before the general driver.
  void QueueDriver(Driver d) { queued_.push_back(std::move(d)); }
  void SetReportDir(std::string dir) { report_dir_ = std::move(dir); }
  void SetAppTitle(std::string t) { title_ = std::move(t); }
  // Answers for the next message boxes (default: the box's default button).
  void QueueAnswer(int answer) { answers_.push_back(answer); }

  const std::vector<Dialog*>& open_dialogs() const { return stack_; }
  Dialog* Top() const { return stack_.empty() ? nullptr : stack_.back(); }
  // Every message box text shown so far, in order.
  const std::vector<std::string>& messages() const { return messages_; }
  int wait_cursor_depth() const { return wait_depth_; }

  int RunModal(Dialog& dlg) override;
  int MessageBox(const std::string& text, const std::string& caption, unsigned type) override;
  void BeginWaitCursor() override { ++wait_depth_; }
  void EndWaitCursor() override { --wait_depth_; }
  Size BaseUnits(const Font& font) override;
  Size TextExtent(const std::string& text, const Font& font) override;
  std::optional<std::string> NewReportPath(std::string_view title) override;
  void ShowReport(const std::string& path) override;
  std::string AppTitle() const override { return title_; }

 private:
  std::ostream& out_;
  Driver driver_;
  std::deque<Driver> queued_;
  std::deque<int> answers_;
  std::vector<Dialog*> stack_;
  std::vector<std::string> messages_;
  std::string report_dir_;
  std::string title_ = "OrvelKestra";
  int wait_depth_ = 0;
};

// Escapes line feeds as \n for one-line transcript entries.
std::string TranscriptText(const std::string& s);

}  // namespace ui
