#pragma once
// The window renderer of the dialog framework: modal dialogs as Qt dialogs, message
// boxes, the wait cursor, font measures, and where reports go and how they are opened.
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <QPointer>
#include <QWidget>

#include "ui/ui_host.h"

namespace kestra::qt {

class DialogView;

class QtUiHost : public ui::UiHost {
 public:
  QtUiHost();
  ~QtUiHost() override;

  int RunModal(ui::Dialog& dlg) override;
  int MessageBox(const std::string& text, const std::string& caption, unsigned type) override;
  void BeginWaitCursor() override;
  void EndWaitCursor() override;
  ui::Size BaseUnits(const ui::Font& font) override;
  ui::Size TextExtent(const std::string& text, const ui::Font& font) override;
  std::optional<std::string> NewReportPath(std::string_view title) override;
  void ShowReport(const std::string& path) override;
  // On standard error and in the status line.
  void ShowFailureCause(const std::string& cause) override;
  std::string AppTitle() const override { return title_; }
  void Redraw(ui::Dialog& dlg) override;

  // The window dialogs and message boxes are centred on when no dialog is open.
  void SetMainWindow(QWidget* w) { main_window_ = w; }
  void SetAppTitle(std::string t) { title_ = std::move(t); }
  // Folder for new reports (default: <documents>/OrvelKestra).
  void SetReportFolder(std::string folder) { report_folder_ = std::move(folder); }
  // How a written report is opened (default: the desktop's handler for .docx).
  void SetReportOpener(std::function<bool(const std::string&)> open) { open_report_ = std::move(open); }
  // One-line notes for the designer (the main window's status line and history).
  void SetStatusSink(std::function<void(const std::string&)> sink) { status_ = std::move(sink); }

  // The open modal dialogs, innermost last.
  const std::vector<DialogView*>& views() const { return views_; }
  DialogView* TopView() const { return views_.empty() ? nullptr : views_.back(); }
  int wait_cursor_depth() const { return wait_depth_; }

 private:
  QWidget* ParentWindow() const;

  std::vector<DialogView*> views_;
  QPointer<QWidget> main_window_;
  std::string title_ = "OrvelKestra";
  std::string report_folder_;
  std::function<bool(const std::string&)> open_report_;
  std::function<void(const std::string&)> status_;
  int wait_depth_ = 0;
};

}  // namespace kestra::qt
