#pragma once
// The window mode of kestra.
#include <string>

namespace kestra::qt {

// Window mode: QApplication, the Qt renderer as ui::UiHost, the main window with the
// command line and the calculators' menu/toolbar; runs `initial_command` when not empty.
int RunWindowMode(int argc, char** argv, const std::string& module_path, const std::string& initial_command);

}  // namespace kestra::qt
