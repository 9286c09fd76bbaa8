#pragma once
// A calculation report as the calculators describe it: a list of blocks in writing order.
// The calculators build these from their dialogs' values; the report writer turns them
// into writing operations (title block, section heading, body block, plain runs, ...).
#include <string>
#include <vector>

namespace kestra::report {

enum class BlockKind {
  Title,         // "标题 1", centred; marked text; paragraph end
  Heading,       // "标题 2", left; marked text; paragraph end
  PlainTitle,    // as Title, the text inserted as it is (marks stay literal)
  PlainHeading,  // as Heading, the text inserted as it is
  Body,          // marked text in the body style; paragraph end
  BodyEnd,       // marked text in the body style; ends the report (no paragraph end)
  Plain,         // text inserted as it is (marks stay literal); no paragraph end
  NewParagraph,  // a paragraph end
  DocumentFont,  // text = East Asian font name for the whole document
  HeaderDone,    // from here on a failure is reported as the body's failure
};

struct Block {
  BlockKind kind;
  std::string text;
  bool operator==(const Block&) const = default;
};

using Blocks = std::vector<Block>;

}  // namespace kestra::report
