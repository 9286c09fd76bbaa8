#pragma once
// The command "OrvelDieselContentCal": runs the generator-capacity dialog. The shell calls
// it with the module's resources current (its resource guard around the call).

namespace kestra::diesel {

void RunDieselCommand();

}  // namespace kestra::diesel
