#pragma once
// One widget per control of the dialog model: built once, then brought in step with the
// control after every change. What the designer does to a widget goes back to the model
// through the designer actions of ui/actions.h, so the model and its notifications are
// exactly those of the script host.
#include <functional>
#include <memory>

#include <QWidget>

#include "ui/control.h"

namespace kestra::qt {

// Where widgets send what the designer did.
class ActionRouter {
 public:
  virtual ~ActionRouter() = default;
  // Runs a designer's action on control c (if c still exists), then shows the model again.
  virtual void Act(ui::Control* c, const std::function<void(ui::Control&)>& action) = 0;
  // True while the model is being shown: widget signals then are not the designer's.
  virtual bool Showing() const = 0;
  // Gives control c the keyboard focus as Tab does (an edit's text selected).
  virtual void FocusControl(ui::Control* c) = 0;
};

class ControlWidget {
 public:
  virtual ~ControlWidget() = default;
  // The widget placed at the control's rectangle (owned by its Qt parent).
  virtual QWidget* widget() const = 0;
  // Shows the control's current state (text, items, flags, place).
  virtual void Show(const ui::Control& c) = 0;
  // Drawn behind the other controls and children (group boxes, frames, tab strips).
  virtual bool background() const { return false; }
};

std::unique_ptr<ControlWidget> MakeControlWidget(ui::Control& c, QWidget* parent, ActionRouter& router);

// Captions mark a mnemonic with a single "&", which is not shown; "&&" shows as "&".
QString WithoutMnemonic(const std::string& text);

}  // namespace kestra::qt
