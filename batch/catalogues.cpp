#include "batch/catalogues.h"

#include "djqd/djqd_formulas.h"
#include "djqd/djqd_reactor_queries.h"
#include "forms/catalogue_queries.h"
#include "services/tabledb/ado.h"
#include "services/tabledb/cell_text.h"
#include "services/tabledb/key_indexes.h"
#include "services/text/data_path.h"
#include "services/text/number_text.h"

namespace kestra::batch {
namespace {

constexpr const char* kMotorTable = "电机";

}  // namespace

Catalogue::Catalogue(const std::string& path) : db_(std::make_unique<CADODatabase>()) {
  try {
    db_->Open(tabledb::ConnectionText(path));
    CADOTableDefInfo info;
    for (int i = 0, n = db_->GetTableDefCount(); i < n; ++i) {
      if (db_->GetTableDefInfo(i, info, 1) && text::EqualsNoCase(info.m_strType, "TABLE")) tables_.push_back(info.m_strName);
    }
  } catch (const CADOException& e) {
    open_error_ = path + ": " + e.GetErrorMessage();
    db_.reset();
  }
}

Catalogue::~Catalogue() = default;

bool Catalogue::HasTable(const std::string& name) const {
  for (const std::string& t : tables_)
    if (t == name) return true;
  return false;
}

std::vector<std::string> Catalogue::Column(const std::string& query) const {
  std::vector<std::string> out;
  if (!db_) return out;
  CADORecordset rs(db_.get());
  rs.Open(query, 0);
  Variant v;
  while (!rs.IsEOF()) {
    rs.GetFieldValue(0, v);
    out.push_back(CCrack::strVARIANT(v));
    rs.MoveNext();
  }
  rs.Close();
  return out;
}

const LineCatalogue::Columns* LineCatalogue::ColumnsOf(const std::string& table, LookupError& error) {
  if (const auto it = columns_.find(table); it != columns_.end()) return &it->second;
  if (!cat_.open()) {
    error = {"线路表", "线路数据库无法打开: " + cat_.open_error()};
    return nullptr;
  }
  if (!cat_.HasTable(table)) {
    error = {"线路表", "线路数据库中没有表'" + table + "'"};
    return nullptr;
  }
  Columns c;
  try {
    CADOTableDef def(cat_.db());
    def.Open(table);
    CADOFieldInfo info;
    for (int j = 1; j < def.GetFieldCount(); ++j) {
      def.GetFieldInfo(j, info, 1);
      if (tabledb::IsKeyColumn(info.m_strName)) {
        c.index.push_back(info.m_strName.substr(std::string(tabledb::kKeyMark).size()));
      } else {
        c.value.push_back(info.m_strName);
      }
    }
    def.Close();
  } catch (const CADOException& e) {
    error = {"线路表", e.GetErrorMessage()};
    return nullptr;
  }
  if (c.index.size() > 3 || c.value.size() != 3) {
    error = {"线路表", "表'" + table + "'不是线路数据表 (应有至多3个索引列和3个数据列: 电阻、感抗、电压)"};
    return nullptr;
  }
  return &columns_.emplace(table, std::move(c)).first->second;
}

std::optional<LineData> LineCatalogue::Find(const std::string& table, const std::vector<std::string>& keys,
                                            LookupError& error) {
  const Columns* cols = ColumnsOf(table, error);
  if (cols == nullptr) return std::nullopt;
  const std::size_t need = cols->index.size();
  for (std::size_t i = 0; i < keys.size() || i < need; ++i) {
    const std::string column = "索引" + std::to_string(i + 1);
    const bool given = i < keys.size() && !keys[i].empty();
    if (i < need && !given) {
      error = {column, "表'" + table + "'的第" + std::to_string(i + 1) + "个索引列'" + cols->index[i] + "'未填写"};
      return std::nullopt;
    }
    if (i >= need && given) {
      error = {column, "表'" + table + "'只有" + std::to_string(need) + "个索引列"};
      return std::nullopt;
    }
  }
  std::vector<std::string> used(keys.begin(), keys.begin() + static_cast<std::ptrdiff_t>(need));
  auto [it, fresh] = rows_.try_emplace({table, used});
  if (fresh) {
    std::vector<forms::KeyText> where;
    for (std::size_t i = 0; i < need; ++i) where.push_back({cols->index[i], used[i]});
    // The line forms' query: FROM T without brackets, "Like", empty keys left out.
    const forms::RowQueryStyle style{false, "Like", true};
    LineData d;
    bool found = true;
    try {
      for (std::size_t k = 0; k < 3 && found; ++k) {
        const auto cells = cat_.Column(forms::RowValueQuery(cols->value[k], table, where, style));
        found = !cells.empty();
        if (found) d.values[k] = tabledb::NumberCellText(cells.back());  // the last row wins, as in the form
      }
    } catch (const CADOException& e) {
      rows_.erase(it);
      error = {"线路表", e.GetErrorMessage()};
      return std::nullopt;
    }
    d.row = table;
    for (std::size_t i = 0; i < need; ++i) d.row += (i ? "/" : " ") + used[i];
    if (found) it->second = std::move(d);
  }
  if (!it->second) {
    std::string names;
    for (std::size_t i = 0; i < need; ++i) names += (i ? ", " : "") + cols->index[i] + "=" + used[i];
    error = {"索引1", "表'" + table + "'中没有" + names + "的行"};
  }
  return it->second;
}

std::optional<MotorData> MotorCatalogue::Find(const std::string& series, const std::string& model,
                                              LookupError& error) {
  if (!cat_.open()) {
    error = {"系列", "电机数据库无法打开: " + cat_.open_error()};
    return std::nullopt;
  }
  if (!cat_.HasTable(kMotorTable)) {
    error = {"系列", "电机数据库中没有表'电机'"};
    return std::nullopt;
  }
  auto [it, fresh] = rows_.try_emplace({series, model});
  try {
    if (fresh) {
      static const char* const kColumns[5] = {"功率kW", "转速r/min", "额定电流A", "起动电流A", "额定电压kV"};
      const std::vector<forms::KeyText> keys{{"系列名称", series}, {"型号", model}};
      MotorData d;
      bool found = true;
      for (std::size_t k = 0; k < 5 && found; ++k) {
        const auto cells = cat_.Column(forms::RowValueQuery(kColumns[k], kMotorTable, keys, forms::RowQueryStyle{}));
        found = !cells.empty();
        if (found) d.values[k] = tabledb::NumberCellText(cells.back());
      }
      if (found) it->second = std::move(d);
    }
    if (!it->second) {
      const auto models = cat_.Column(forms::KeyValuesUnderQuery("型号", kMotorTable, {"系列名称", series}));
      error = models.empty() ? LookupError{"系列", "电机数据库中没有系列'" + series + "'"}
                             : LookupError{"型号", "系列'" + series + "'中没有型号'" + model + "'"};
    }
  } catch (const CADOException& e) {
    rows_.erase(it);
    error = {"系列", e.GetErrorMessage()};
    return std::nullopt;
  }
  return it->second;
}

const std::vector<double>& ReactorCatalogue::Reactances() {
  if (!reactances_) {
    reactances_.emplace();
    if (cat_.HasTable(djqd::kReactorTable)) {
      for (const std::string& t : cat_.Column(djqd::ReactancesQuery()))
        reactances_->push_back(text::WcsToD(t));
    }
  }
  return *reactances_;
}

std::string ReactorCatalogue::Model(const std::string& xz_text, double istm) {
  if (!cat_.HasTable(djqd::kReactorTable)) return {};
  // The catalogue holds 1.05 where the result field shows 1.050.
  const std::string x = djqd::TrimTrailingZeros(xz_text);
  const auto current_texts = cat_.Column(djqd::ReactorCurrentsQuery(x));
  std::vector<double> currents;
  for (const std::string& t : current_texts) currents.push_back(text::WcsToD(t));
  const int chosen = djqd::ChooseStartingCurrent(currents, istm);
  if (chosen < 0) return {};
  const auto models = cat_.Column(djqd::ReactorModelQuery(current_texts[static_cast<std::size_t>(chosen)], x));
  return models.empty() ? std::string() : models.back();
}

}  // namespace kestra::batch
