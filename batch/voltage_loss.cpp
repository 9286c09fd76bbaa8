#include "batch/voltage_loss.h"

#include "dyss/dyss_checks.h"
#include "dyss/dyss_formulas.h"
#include "services/text/format.h"
#include "services/text/number_text.h"

namespace kestra::batch {
namespace {

using namespace loss_col;

// The column a refused field of the dialog's checks was read from.
const char* ColumnOf(dyss::Field f) {
  switch (f) {
    case dyss::Field::kPowerFactor: return kCosPhi;
    case dyss::Field::kCurrent: return kCurrent;
    case dyss::Field::kLength: return kLength;
    case dyss::Field::kLoad: return kLoad;
    case dyss::Field::kRequire: return kAllowed;
    default: return "";
  }
}

const char* WhyNoValue(dyss::Outcome o) {
  return o == dyss::Outcome::kNoLineData ? "线路数据缺失 (电压或阻抗为0), 无法计算"
                                         : "输入值使计算结果不是有限数";
}

}  // namespace

const std::vector<std::string>& LossRequiredColumns() {
  static const std::vector<std::string> c{kName, kKind, kLength, kCosPhi, kAllowed};
  return c;
}

const std::vector<std::vector<std::string>>& LineKindTexts() {
  static const std::vector<std::vector<std::string>> t{
      {"三相平衡负荷线路", "三相平衡线路"},
      {"接于线电压的单相负荷线路"},
      {"接于相电压的两相-N线平衡负荷线路"},
      {"接相电压的单相负荷线路"}};
  return t;
}

LossRow ComputeLossRow(const ScheduleRow& row, LineCatalogue& lines) {
  LossRow r;
  r.line = row.line();
  r.name = row.Text(kName);
  try {
    r.kind = row.Choice(kKind, LineKindTexts());
    dyss::LossInputs in;
    in.kind = r.kind;
    if (!row.Empty(kTable)) {
      std::vector<std::string> keys;
      for (const char* c : kIndex) keys.push_back(row.Text(c));
      LookupError e;
      const auto data = lines.Find(row.Text(kTable), keys, e);
      if (!data) throw Refused{e.column, e.message};
      in.line = data->values;
      r.line_row = data->row;
    } else {
      for (std::size_t k = 0; k < 3; ++k) {
        if (row.Empty(kLine[k])) throw Refused{kTable, "需填写线路表, 或直接填写电阻、感抗和电压"};
        if (row.Number(kLine[k]) < 0) throw Refused{kLine[k], "不能为负数"};
        in.line[k] = row.Text(kLine[k]);
      }
      r.line_row = "直接给定";
    }
    r.line_data = in.line;
    const bool by_current = !row.Empty(kCurrent), by_load = !row.Empty(kLoad);
    if (by_current == by_load) {
      throw Refused{kCurrent, by_current ? "电流A与有功kW只能填写一项" : "需填写电流A (电流矩) 或有功kW (负荷矩)"};
    }
    // The load situations of the two pages: current moment (forms 0 and 0), load moment (2 and 1).
    in.form = by_current ? 0 : 2;
    in.current[0] = row.Text(kCurrent);
    in.load[0] = row.Text(kLoad);
    in.length[0] = r.length = row.Text(kLength);
    in.cos_phi = row.Number(kCosPhi);  // the forms exchange cosφ as a number
    if (const auto refusal = dyss::FirstRefusal(in)) throw Refused{ColumnOf(refusal->field.field), refusal->message};

    dyss::LengthInputs len;
    len.kind = r.kind;
    len.form = by_current ? 0 : 1;
    len.current = in.current[0];
    len.load = in.load[0];
    len.cos_phi = in.cos_phi;
    len.require = row.Text(kAllowed);
    len.line = in.line;
    if (const auto refusal = dyss::FirstRefusal(len)) throw Refused{ColumnOf(refusal->field.field), refusal->message};

    const dyss::LossResult loss = dyss::ComputeLoss(in);
    if (loss.outcome != dyss::Outcome::kValue) throw Refused{"", WhyNoValue(loss.outcome)};
    const dyss::LengthResult length = dyss::ComputeLength(len);
    r.du = loss.du;
    r.allowed = length.du;
    if (length.outcome == dyss::Outcome::kValue) r.l_allowed = length.l;
    r.pass = text::WcsToD(text::Format3f(r.du)) <= r.allowed;
  } catch (const Refused& e) {
    r.refusal = RowRefusal{r.line, e.column, e.message};
  }
  return r;
}

const std::vector<std::string>& LossResultHeader() {
  static const std::vector<std::string> h{"回路", "行", "线路种类", "线路", "电阻Ω/km", "感抗Ω/km", "电压kV",
                                          "长度km", "Δu%", "允许压降%", "允许长度km", "结论", "说明"};
  return h;
}

std::vector<std::string> LossResultCells(const LossRow& r) {
  if (r.refusal) {
    return {r.name, std::to_string(r.line), "", "", "", "", "", "", "", "", "", "拒绝", r.refusal->Text()};
  }
  return {r.name,
          std::to_string(r.line),
          LineKindTexts()[static_cast<std::size_t>(r.kind)].front(),
          r.line_row,
          r.line_data[0],
          r.line_data[1],
          r.line_data[2],
          r.length,
          text::Format3f(r.du),
          text::FormatG(r.allowed),
          r.l_allowed ? text::Format3f(*r.l_allowed) : "",
          r.pass ? "合格" : "超限",
          LossFailureText(r)};
}

std::string LossFailureText(const LossRow& r) {
  if (r.refusal) return r.refusal->Text();
  if (r.pass) return {};
  return text::Format("电压损失Δu=%.3f%%大于允许值%g%%", r.du, r.allowed) +
         (r.l_allowed ? text::Format(", 线路长度%skm超过允许长度%.3fkm", r.length, *r.l_allowed) : std::string());
}

}  // namespace kestra::batch
