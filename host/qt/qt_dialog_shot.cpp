// Renders a dialog template through the Qt host into a PNG, to look at a layout without the
// calculator behind it (e.g. res/wggl.rc, or the test template tests/qt/data/test_dialogs.rc):
//   qt_dialog_shot FILE.rc DIALOG OUT.png [CHILD@X,Y[w] | CONTROL=LIBRARY.slb#SLIDE | CONTROL=PAGE.rtf ...]
// DIALOG, CHILD and CONTROL are ids or symbols; each child form is shown inside the dialog at
// (X, Y) dialog units, a trailing "w" gives it a white background; a picture control shows the
// named slide of a slide library, a rich-text control a description page.
// A message box of the host:
//   qt_dialog_shot --message TEXT TYPE OUT.png          (TYPE: the MB_ value, e.g. 0x30)
#include <cstdio>
#include <functional>
#include <fstream>
#include <memory>
#include <sstream>
#include <utility>
#include <vector>

#include <QApplication>
#include <QDialog>
#include <QPixmap>
#include <QPushButton>
#include <QTimer>

#include "host/qt/dialog_view.h"
#include "host/qt/message_box.h"
#include "host/qt/qt_ui_host.h"
#include "ui/dialog.h"
#include "ui/resource_script.h"
#include "ui/rtf_reader.h"
#include "ui/slide_library.h"

namespace {

struct ChildForm {
  int id, x, y;
  bool white;
};

class ShotDialog : public ui::Dialog {
 public:
  using Content = std::pair<int, std::function<void(ui::Control&)>>;
  ShotDialog(int id, std::vector<ChildForm> forms, std::vector<Content> contents)
      : Dialog(id), forms_(std::move(forms)), contents_(std::move(contents)) {}
  bool OnInitDialog() override {
    Dialog::OnInitDialog();
    for (auto& [id, fill] : contents_)
      if (ui::Control* c = GetDlgItem(id)) fill(*c);
      else std::fprintf(stderr, "no control %d\n", id);
    for (const ChildForm& s : forms_) {
      auto& child = *children_.emplace_back(std::make_unique<ui::Dialog>(s.id));
      if (!child.Create(this)) {
        std::fprintf(stderr, "no child dialog %d\n", s.id);
        continue;
      }
      const ui::DialogTemplate* t = child.GetTemplate();
      child.MoveWindow(MapDialogRect(ui::Rect{s.x, s.y, s.x + t->cx, s.y + t->cy}));
      if (s.white) child.SetBackground(0xFFFFFF);
      child.ShowWindow(true);
    }
    return true;
  }

 private:
  std::vector<ChildForm> forms_;
  std::vector<Content> contents_;
  std::vector<std::unique_ptr<ui::Dialog>> children_;
};

int Fail(const char* what, const std::string& arg, int status = 1) {
  std::fprintf(stderr, "%s %s\n", what, arg.c_str());
  return status;
}

}  // namespace

int MessageShot(const char* text, const char* type, const char* out) {
  kestra::qt::QtUiHost host;
  bool saved = false;
  QTimer::singleShot(50, [&] {
    for (QWidget* w : QApplication::topLevelWidgets())
      if (auto* box = dynamic_cast<kestra::qt::MessageBoxWindow*>(w); box && box->isVisible()) {
        saved = box->grab().save(QString::fromLocal8Bit(out));
        box->default_button()->click();
      }
  });
  host.MessageBox(text, {}, static_cast<unsigned>(std::strtoul(type, nullptr, 0)));
  return saved ? 0 : Fail("cannot write", out);
}

int main(int argc, char** argv) {
  if (argc == 5 && std::string(argv[1]) == "--message") {
    QApplication app(argc, argv);
    return MessageShot(argv[2], argv[3], argv[4]);
  }
  if (argc < 4) return Fail("usage:", std::string(argv[0]) + " FILE.rc DIALOG OUT.png [CHILD@X,Y[w] | CONTROL=LIBRARY.slb#SLIDE | CONTROL=PAGE.rtf ...]", 2);
  QApplication app(argc, argv);
  std::ifstream in(argv[1], std::ios::binary);
  if (!in) return Fail("cannot read", argv[1]);
  std::stringstream text;
  text << in.rdbuf();
  ui::ResourceSet res;
  try {
    res.Parse(text.str(), argv[1]);
  } catch (const ui::ResourceError& e) {
    return Fail("bad template:", e.what());
  }
  auto id_of = [&](const std::string& s) {
    return !s.empty() && s.find_first_not_of("0123456789") == std::string::npos ? std::atoi(s.c_str()) : res.Symbol(s, -1);
  };
  std::vector<ChildForm> forms;
  std::vector<ShotDialog::Content> contents;
  for (int i = 4; i < argc; ++i) {
    std::string a = argv[i];
    if (auto eq = a.find('='); eq != std::string::npos) {
      const int id = id_of(a.substr(0, eq));
      const std::string file = a.substr(eq + 1);
      if (auto hash = file.rfind('#'); hash != std::string::npos) {
        ui::CSlideLibraryData slides;
        if (slides.Read(file.substr(0, hash)) < 1) return Fail("no slides:", slides.error());
        const ui::VectorPicture* pic = slides.GetPicture(slides.FindSlide(file.substr(hash + 1)));
        if (!pic) return Fail("no slide", file.substr(hash + 1));
        contents.emplace_back(id, [pic = *pic](ui::Control& c) { c.SetPicture(pic); });
      } else {
        std::string error;
        auto page = ui::ReadRtfFile(file, &error);
        if (!page) return Fail("no page:", error);
        contents.emplace_back(id, [page = *page](ui::Control& c) { c.SetRichDocument(page); });
      }
      continue;
    }
    auto at = a.find('@'), comma = a.find(',');
    if (at == std::string::npos || comma == std::string::npos || comma < at) return Fail("bad child", a, 2);
    bool white = a.back() == 'w';
    if (white) a.pop_back();
    forms.push_back({id_of(a.substr(0, at)), std::atoi(a.substr(at + 1, comma - at - 1).c_str()),
                     std::atoi(a.substr(comma + 1).c_str()), white});
  }
  kestra::qt::QtUiHost host;
  ui::PushResources(&res);
  ui::SetCurrentHost(&host);
  ShotDialog dlg(id_of(argv[2]), forms, std::move(contents));
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
  if (r == -1) return Fail("no dialog", argv[2]);
  if (!saved) return Fail("cannot write", argv[3]);
  return 0;
}
