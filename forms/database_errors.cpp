#include "forms/database_errors.h"

#include "services/tabledb/ado.h"
#include "ui/ui_host.h"

namespace kestra::forms {

DatabaseErrorsShown::DatabaseErrorsShown() : saved_(tabledb::CurrentErrorReporter()) {
  tabledb::SetErrorReporter([](const std::string& message) { ui::MessageBox(message, {}, ui::MB_OK); });
}

DatabaseErrorsShown::~DatabaseErrorsShown() { tabledb::SetErrorReporter(saved_); }

}  // namespace kestra::forms
