#pragma once
// A description page (paragraphs of formatted runs) laid into a Qt text document.
#include <QTextDocument>

#include "ui/rich_text.h"

namespace kestra::qt {

void FillTextDocument(QTextDocument& doc, const ui::RichDocument& rich);

bool SameRichDocument(const ui::RichDocument& a, const ui::RichDocument& b);

}  // namespace kestra::qt
