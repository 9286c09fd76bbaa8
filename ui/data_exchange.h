#pragma once
// Exchange between a dialog's members and its controls (load: members to controls;
// save: controls to members). A field that does not read as its type is refused with
// the framework's message; the exchange stops there and earlier fields keep what they got.
#include <string>

namespace ui {

class Dialog;

// The framework's refusal messages.
inline constexpr const char* kRefuseReal = "请输入一个数字。";
inline constexpr const char* kRefuseInt = "请输入一个整数。";

class DataExchange {
 public:
  DataExchange(Dialog& dlg, bool save) : dlg_(dlg), save_(save) {}
  bool saving() const { return save_; }
  bool failed() const { return failed_; }

  void Text(int id, std::string& value);
  // Loading prints "%.15g"; saving reads the whole text as a real (blanks around allowed).
  void Real(int id, double& value);
  void Int(int id, int& value);
  void ComboIndex(int id, int& value);  // selection of a combo or list (-1 none)
  void Check(int id, int& value);       // check box state
  // Index of the checked radio in the group that starts at first_id (-1 none).
  void Radio(int first_id, int& value);

 private:
  bool Skip() const { return failed_; }
  void Fail(const char* message, int id);

  Dialog& dlg_;
  bool save_;
  bool failed_ = false;
};

// The real-number reading of the exchange: the whole text must be one number.
bool ParseWholeReal(const std::string& text, double* out);
bool ParseWholeInt(const std::string& text, int* out);

}  // namespace ui
