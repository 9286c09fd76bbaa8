#pragma once
// The main window's "工程信息" dialog: the project, stage, designer, checker and date that head
// every report, edited and kept in the project file.
#include <string>

class QWidget;

namespace kestra::qt {

class QtUiHost;

// Shows the dialog over `parent` with the project file's values; "确定" stores what changed.
// A value that cannot be stored is told in a message box and the dialog stays open with the
// designer's texts. Returns true when the file was written.
bool EditProject(QWidget* parent, QtUiHost& ui, const std::string& project_file);

}  // namespace kestra::qt
