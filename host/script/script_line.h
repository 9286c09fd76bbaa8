#pragma once
// One line of a kestra script split into words: words are separated by blanks; a word
// with blanks is written in double quotes, with \" \\ and \n inside.
#include <string>
#include <string_view>
#include <vector>

namespace kestra::script {

struct Word {
  std::string text;  // the word's value (quotes and escapes resolved)
  std::string raw;   // the word as written in the script
  bool quoted = false;
};

// Splits a line into words. False with a reason when a quote is not closed, an escape is
// not one of \" \\ \n, or a closing quote is not followed by a blank.
bool SplitLine(std::string_view line, std::vector<Word>* words, std::string* error);

// A line the runner skips: blank, or a comment starting with ";" (after leading blanks).
bool IsBlankOrComment(std::string_view line);

// A count or index written as plain digits ("0", "12"); false for anything else.
bool ParseCount(const Word& w, int* out);

}  // namespace kestra::script
