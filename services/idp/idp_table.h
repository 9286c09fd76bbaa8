#pragma once
// Tables kept in a parameter file (the table display's "datcom\tabdata.idp"): a title, column
// headings, rows of cell texts and a note, stored under one table key as
//   T\Title, T\Columns, T\Rows, T\Header\<c>, T\Row\<r>\<c>, T\Note.
// The catalogue data generator writes the same layout; keep them in step.
#include <optional>
#include <string>
#include <vector>

class CInterDpData;

namespace kestra::idp {

struct IdpTable {
  std::string title;
  std::vector<std::string> headers;            // one per column
  std::vector<std::vector<std::string>> rows;  // each row has one text per column
  std::string note;
};

// The table under table_key of a parameter file. nullopt with a message in *error when the file
// is missing or unreadable, the table is not there, or its layout is broken (counts that are not
// whole numbers, a missing heading, cells outside the counts). Missing cells read as empty.
// The file is only read, never moved or changed.
std::optional<IdpTable> ReadTable(const std::string& file_path, const std::string& table_key,
                                  std::string* error);
// The same from a tree already read.
std::optional<IdpTable> ReadTable(const CInterDpData& tree, const std::string& table_key,
                                  std::string* error);

// Stores the table under key, replacing whatever the key held below it. Rows shorter than the
// headings are padded with empty cells. False (tree unchanged) for a bad key, no headings, a row
// longer than the headings, or a text that is not valid UTF-8.
bool WriteTable(CInterDpData& tree, const std::string& key, const IdpTable& table);

}  // namespace kestra::idp
