#pragma once
// The power-factor spin of the line forms (both pages): one step of the up-down control beside
// a form's cosφ edit.
namespace ui {
class Dialog;
}

namespace kestra::dyss {

// An empty edit, or one holding anything but digits and points, first becomes 0. The form's
// controls are read; a cosφ outside 0..1 is refused ("请输入0 ～ 1之间的实数!", caption
// "电压损失计算") and becomes 0. Then cosφ − delta/20, limited to 0..1, is shown.
void StepPowerFactor(ui::Dialog& form, int cos_edit, double& cos_phi, int delta);

}  // namespace kestra::dyss
