#pragma once
// A small reader of rich-text (.RTF) pages for the rich-text control: paragraphs with their
// alignment and indents, runs with bold, italic, underline, sub/superscript and size.
// Text is decoded from \uN escapes and from the document's code page (936, GBK, unless the
// page names another) into UTF-8. Font, colour and style tables, document information and
// every "\*" destination are skipped; pictures and fields show nothing but their result text.
#include <optional>
#include <string>
#include <string_view>

#include "ui/rich_text.h"

namespace ui {

// nullopt, with the reason in *error when given, for a text that is not an RTF document (it
// must begin with "{\rtf"). A document cut short is shown as far as it goes; anything after
// the document's closing brace is not part of the page.
std::optional<RichDocument> ReadRtf(std::string_view rtf, std::string* error = nullptr);
// The same for a file; a file that cannot be read gives nullopt and the reason.
std::optional<RichDocument> ReadRtfFile(const std::string& path, std::string* error = nullptr);
// A description page of a dialog: the file's page, or, when it cannot be read, one line that
// says which page is missing and why, so that the dialog is never blank without a word.
RichDocument ReadRtfPage(const std::string& path);

}  // namespace ui
