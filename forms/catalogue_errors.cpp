#include "forms/catalogue_errors.h"

#include "services/tabledb/ado.h"
#include "ui/ui_host.h"

namespace kestra::forms {

CatalogueErrorBoxes::CatalogueErrorBoxes() {
  kestra::tabledb::SetErrorReporter([](const std::string& message) { ui::MessageBox(message, {}, ui::MB_OK); });
}

CatalogueErrorBoxes::~CatalogueErrorBoxes() { kestra::tabledb::SetErrorReporter(nullptr); }

}  // namespace kestra::forms
