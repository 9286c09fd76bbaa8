#pragma once
// While a catalogue dialog is open, the catalogue service's own error reports (a catalogue that
// cannot be opened, a query that fails) reach the designer in a message box with the host's
// default caption, and so the transcript of a script run, instead of the program's error stream.
namespace kestra::forms {

class CatalogueErrorBoxes {
 public:
  CatalogueErrorBoxes();
  ~CatalogueErrorBoxes();
  CatalogueErrorBoxes(const CatalogueErrorBoxes&) = delete;
  CatalogueErrorBoxes& operator=(const CatalogueErrorBoxes&) = delete;
};

}  // namespace kestra::forms
