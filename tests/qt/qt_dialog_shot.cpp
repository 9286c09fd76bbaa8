// Renders a dialog template through the Qt host into a PNG, so a layout can be looked at
// without the calculator behind it:
//   qt_dialog_shot FILE.rc DIALOG OUT.png [CHILD@X,Y[w] ...]
// DIALOG and CHILD are ids or symbols; each child form is created inside the dialog at
// (X, Y) dialog units and shown; a trailing "w" gives it a white background.
#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>
#include <vector>

#include <QApplication>
#include <QDialog>
#include <QPixmap>
#include <QTimer>

#include "host/qt/dialog_view.h"
#include "host/qt/qt_ui_host.h"
#include "ui/dialog.h"
#include "ui/resource_script.h"

namespace {

struct ChildSpec {
  int id;
  int x, y;
  bool white;
};

class ShotDialog : public ui::Dialog {
 public:
  ShotDialog(int id, std::vector<ChildSpec> specs) : Dialog(id), specs_(std::move(specs)) {}
  bool OnInitDialog() override {
    Dialog::OnInitDialog();
    for (const ChildSpec& s : specs_) {
      auto child = std::make_unique<ui::Dialog>(s.id);
      if (!child->Create(this)) {
        std::fprintf(stderr, "no child dialog %d\n", s.id);
        continue;
      }
      const ui::DialogTemplate* t = child->GetTemplate();
      child->MoveWindow(MapDialogRect(ui::Rect{s.x, s.y, s.x + t->cx, s.y + t->cy}));
      if (s.white) child->SetBackground(0xFFFFFF);
      child->ShowWindow(true);
      children_.push_back(std::move(child));
    }
    return true;
  }

 private:
  std::vector<ChildSpec> specs_;
  std::vector<std::unique_ptr<ui::Dialog>> children_;
};

int IdOf(const ui::ResourceSet& res, const std::string& s) {
  char* end = nullptr;
  long v = std::strtol(s.c_str(), &end, 10);
  if (end && *end == '\0') return static_cast<int>(v);
  return res.Symbol(s, -1);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) {
    std::fprintf(stderr, "usage: %s FILE.rc DIALOG OUT.png [CHILD@X,Y[w] ...]\n", argv[0]);
    return 2;
  }
  QApplication app(argc, argv);
  std::ifstream in(argv[1], std::ios::binary);
  if (!in) {
    std::fprintf(stderr, "cannot read %s\n", argv[1]);
    return 1;
  }
  std::stringstream text;
  text << in.rdbuf();
  ui::ResourceSet res;
  try {
    res.Parse(text.str(), argv[1]);
  } catch (const ui::ResourceError& e) {
    std::fprintf(stderr, "%s\n", e.what());
    return 1;
  }
  std::vector<ChildSpec> specs;
  for (int i = 4; i < argc; ++i) {
    std::string a = argv[i];
    auto at = a.find('@'), comma = a.find(',');
    if (at == std::string::npos || comma == std::string::npos) {
      std::fprintf(stderr, "bad child '%s'\n", argv[i]);
      return 2;
    }
    bool white = a.back() == 'w';
    if (white) a.pop_back();
    specs.push_back({IdOf(res, a.substr(0, at)), std::atoi(a.substr(at + 1, comma - at - 1).c_str()),
                     std::atoi(a.substr(comma + 1).c_str()), white});
  }
  kestra::qt::QtUiHost host;
  ui::PushResources(&res);
  ui::SetCurrentHost(&host);
  ShotDialog dlg(IdOf(res, argv[2]), specs);
  bool saved = false;
  QTimer::singleShot(50, [&] {
    if (auto* v = host.TopView()) {
      saved = v->window()->grab().save(QString::fromLocal8Bit(argv[3]));
      v->window()->close();
    }
  });
  int r = dlg.DoModal();
  ui::SetCurrentHost(nullptr);
  ui::PopResources();
  if (r == -1) {
    std::fprintf(stderr, "no dialog %s\n", argv[2]);
    return 1;
  }
  if (!saved) {
    std::fprintf(stderr, "cannot write %s\n", argv[3]);
    return 1;
  }
  return 0;
}
