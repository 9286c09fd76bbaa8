#include "services/tabledb/query_rewrite.h"

#include <optional>

#include "services/tabledb/cell_text.h"
#include "services/tabledb/engine.h"
#include "services/text/data_path.h"
#include "services/text/number_text.h"

namespace kestra::tabledb {

namespace {

enum class Tok { Space, Word, Bracket, DQuote, SQuote, BackQuote, Punct };

struct Token {
  Tok kind;
  std::size_t begin, end;  // byte range in the query
};

bool IsWordByte(unsigned char c) {
  return c >= 0x80 || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
         c == '_' || c == '$';
}

// SQLite's own token classes, as far as the rewrite needs them; nullopt on an unclosed quote.
std::optional<std::vector<Token>> Tokenize(const std::string& q) {
  std::vector<Token> out;
  std::size_t i = 0;
  while (i < q.size()) {
    const auto c = static_cast<unsigned char>(q[i]);
    std::size_t j = i + 1;
    Tok kind;
    if (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f') {
      while (j < q.size() && (q[j] == ' ' || q[j] == '\t' || q[j] == '\r' || q[j] == '\n' || q[j] == '\f')) ++j;
      kind = Tok::Space;
    } else if (IsWordByte(c)) {
      while (j < q.size() && IsWordByte(static_cast<unsigned char>(q[j]))) ++j;
      kind = Tok::Word;
    } else if (c == '[') {
      j = q.find(']', i);
      if (j == std::string::npos) return std::nullopt;
      ++j;
      kind = Tok::Bracket;
    } else if (c == '"' || c == '\'' || c == '`') {
      for (;;) {
        j = q.find(static_cast<char>(c), j);
        if (j == std::string::npos) return std::nullopt;
        if (j + 1 < q.size() && q[j + 1] == static_cast<char>(c)) {
          j += 2;
          continue;
        }
        ++j;
        break;
      }
      kind = c == '"' ? Tok::DQuote : c == '\'' ? Tok::SQuote : Tok::BackQuote;
    } else if (c == '-' && j < q.size() && q[j] == '-') {
      return std::nullopt;  // comments: leave such texts alone
    } else if (c == '/' && j < q.size() && q[j] == '*') {
      return std::nullopt;
    } else {
      kind = Tok::Punct;
    }
    out.push_back({kind, i, j});
    i = j;
  }
  return out;
}

// The name inside a bracketed, quoted or bare name token.
std::string NameOf(const std::string& q, const Token& t) {
  std::string s = q.substr(t.begin, t.end - t.begin);
  if (t.kind == Tok::Bracket) return s.substr(1, s.size() - 2);
  if (t.kind == Tok::DQuote || t.kind == Tok::SQuote || t.kind == Tok::BackQuote) {
    const char quote = s[0];
    std::string r;
    for (std::size_t k = 1; k + 1 < s.size(); ++k) {
      r += s[k];
      if (s[k] == quote) ++k;
    }
    return r;
  }
  return s;
}

bool IsKeyword(const std::string& q, const Token& t, const char* kw) {
  return t.kind == Tok::Word && kestra::text::EqualsNoCase(q.substr(t.begin, t.end - t.begin), kw);
}

std::string QuoteName(const std::string& name) {
  if (name.find(']') == std::string::npos) return "[" + name + "]";
  std::string r = "\"";
  for (char c : name) {
    r += c;
    if (c == '"') r += '"';
  }
  return r + "\"";
}

enum class Affinity { Text, Numeric, None };

Affinity AffinityOf(const std::string& declared) {
  std::string t;
  for (char c : declared) t += static_cast<char>((c >= 'a' && c <= 'z') ? c - 32 : c);
  if (t.find("INT") != std::string::npos) return Affinity::Numeric;
  if (t.find("CHAR") != std::string::npos || t.find("CLOB") != std::string::npos ||
      t.find("TEXT") != std::string::npos) {
    return Affinity::Text;
  }
  if (t.empty() || t.find("BLOB") != std::string::npos) return Affinity::None;
  return Affinity::Numeric;  // REAL, FLOA, DOUB and NUMERIC all convert number texts
}

struct Clause {
  std::vector<Token> toks;  // without spaces
};

}  // namespace

RewrittenQuery RewriteQuery(const std::string& q, Engine& engine) {
  RewrittenQuery r;
  auto all = Tokenize(q);
  if (!all) return r;
  std::vector<Token> t;
  for (auto& tok : *all) {
    if (tok.kind != Tok::Space) t.push_back(tok);
  }
  while (!t.empty() && t.back().kind == Tok::Punct && q[t.back().begin] == ';') t.pop_back();
  for (auto& tok : t) {
    if (tok.kind != Tok::Punct) continue;
    const char c = q[tok.begin];
    if (c == ';') return r;                          // more than one statement
    if (c == '?' || c == ':' || c == '@') return r;  // parameters of its own
  }
  // SELECT [DISTINCT] list FROM table [WHERE cond]
  if (t.size() < 4 || !IsKeyword(q, t[0], "SELECT")) return r;
  std::size_t k = 1;
  const bool distinct = IsKeyword(q, t[k], "DISTINCT");
  if (distinct) ++k;
  const std::size_t list_begin = k;
  while (k < t.size() && !IsKeyword(q, t[k], "FROM")) ++k;
  if (k >= t.size() || k == list_begin) return r;
  const std::size_t list_end = k;  // exclusive
  const std::size_t from = k++;
  std::size_t where = k;
  while (where < t.size() && !IsKeyword(q, t[where], "WHERE")) ++where;
  if (k >= where) return r;

  // The table: one name token, or (unbracketed) the whole text up to WHERE when that is a
  // table's name.
  std::string table;
  bool table_needs_quotes = false;
  if (where - k == 1 && t[k].kind != Tok::Punct) {
    table = NameOf(q, t[k]);
  } else {
    table = q.substr(t[k].begin, t[where - 1].end - t[k].begin);
    table_needs_quotes = true;
  }
  auto columns = engine.Columns(table);
  if (!columns) return r;
  for (const char* kw : {"GROUP", "ORDER", "LIMIT", "UNION", "JOIN", "HAVING", "EXCEPT", "INTERSECT",
                         "SELECT", "ESCAPE", "WINDOW"}) {
    for (std::size_t m = from + 1; m < t.size(); ++m) {
      if (IsKeyword(q, t[m], kw)) return r;
    }
  }

  auto column_affinity = [&](const Token& tok) -> std::optional<Affinity> {
    if (tok.kind != Tok::Word && tok.kind != Tok::Bracket && tok.kind != Tok::DQuote) return std::nullopt;
    const std::string name = NameOf(q, tok);
    for (auto& c : *columns) {
      if (kestra::text::EqualsNoCase(c.name, name)) return AffinityOf(c.type);
    }
    return std::nullopt;
  };
  auto column_indexed = [&](const Token& tok) {
    const std::string name = NameOf(q, tok);
    for (auto& c : *columns) {
      if (kestra::text::EqualsNoCase(c.name, name)) return c.indexed;
    }
    return false;
  };
  auto text_of = [&](std::size_t a, std::size_t b) {  // tokens [a, b) as written
    return a >= b ? std::string() : q.substr(t[a].begin, t[b - 1].end - t[a].begin);
  };

  std::string out = "SELECT " + text_of(list_begin, list_end) + " FROM " +
                    (table_needs_quotes ? QuoteName(table) : text_of(from + 1, where));
  bool changed = table_needs_quotes;

  if (where < t.size()) {
    out += " WHERE";
    std::size_t m = where + 1;
    std::size_t copied = t[where].end;  // the text between tokens is kept as written
    auto copy_to = [&](std::size_t pos) {
      out += q.substr(copied, pos - copied);
      copied = pos;
    };
    while (m < t.size()) {
      // column LIKE 'plain pattern', standing alone between AND/OR/NOT/( and AND/OR/)/end
      const Token* prev = &t[m - 1];
      const bool prev_ok = IsKeyword(q, *prev, "WHERE") || IsKeyword(q, *prev, "AND") ||
                           IsKeyword(q, *prev, "OR") || IsKeyword(q, *prev, "NOT") ||
                           (prev->kind == Tok::Punct && q[prev->begin] == '(');
      if (prev_ok && m + 2 < t.size() && IsKeyword(q, t[m + 1], "LIKE") &&
          (t[m + 2].kind == Tok::DQuote || t[m + 2].kind == Tok::SQuote)) {
        const std::size_t next = m + 3;
        const bool next_ok = next >= t.size() || IsKeyword(q, t[next], "AND") ||
                             IsKeyword(q, t[next], "OR") ||
                             (t[next].kind == Tok::Punct && q[t[next].begin] == ')');
        // (a column unknown here, or one without affinity, is left to LIKE alone)
        const Affinity aff =
            t[m].kind == Tok::DQuote ? Affinity::None : column_affinity(t[m]).value_or(Affinity::None);
        // SQLite takes a double-quoted word that names a column for that column, not a text.
        const bool pattern_is_text =
            t[m + 2].kind == Tok::SQuote || !column_affinity(t[m + 2]).has_value();
        const std::string pattern = NameOf(q, t[m + 2]);
        if (next_ok && aff != Affinity::None && pattern_is_text && IsPlainPattern(pattern)) {
          Bind b;
          std::string cmp;
          std::size_t used = 0;
          const double d = kestra::text::WcsToD(pattern, &used);
          if (aff == Affinity::Numeric && used == pattern.size() && !pattern.empty() &&
              kestra::text::EqualsNoCase(NumberText(d), pattern)) {
            b.is_number = true;
            b.number = d;
            cmp = " = ?" + std::to_string(r.binds.size() + 1);
          } else {
            b.text = pattern;
            cmp = " = ?" + std::to_string(r.binds.size() + 1) + " COLLATE NOCASE";
          }
          r.binds.push_back(b);
          const std::string col = text_of(m, m + 1);
          copy_to(t[m].begin);
          out += "(" + col + cmp + " AND " + text_of(m, m + 3) + ")";
          copied = t[m + 2].end;
          changed = true;
          m += 3;
          continue;
        }
      }
      ++m;
    }
    copy_to(t.back().end);
  }

  if (distinct) {
    // Only one output column named plainly is reordered; other lists are left to SQLite.
    if (list_end - list_begin == 1 && column_affinity(t[list_begin]) && where >= t.size() &&
        column_indexed(t[list_begin])) {
      // SQLite skips through the column's index for the distinct values; each value then
      // finds its first row through the same index. (Without an index this would read the
      // table once per value: the grouping below is used then.)
      const std::string col = text_of(list_begin, list_end);
      const std::string table_sql = table_needs_quotes ? QuoteName(table) : text_of(from + 1, where);
      out = "SELECT d." + col + " FROM (SELECT DISTINCT " + col + " FROM " + table_sql +
            ") AS d ORDER BY (SELECT min(f._rowid_) FROM " + table_sql + " AS f WHERE f." + col + " IS d." +
            col + ")";
      changed = true;
    } else if (list_end - list_begin == 1 && column_affinity(t[list_begin])) {
      // With a condition (few rows) or without an index: group the rows and order the
      // groups by their first row.
      out.replace(0, 7, "SELECT ");
      out += " GROUP BY " + text_of(list_begin, list_end) + " ORDER BY min(_rowid_)";
      changed = true;
    } else {
      out.replace(0, 7, "SELECT DISTINCT ");
    }
  } else {
    // Without it SQLite may read a key column through its index: sorted, not stored order.
    out += " ORDER BY _rowid_";
    changed = true;
  }
  if (!changed) return RewrittenQuery{};
  r.changed = true;
  r.sql = out;
  return r;
}

}  // namespace kestra::tabledb
