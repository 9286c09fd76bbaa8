#include "wggl/wggl_params.h"

#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"
#include "services/text/format.h"
#include "services/text/number_text.h"

namespace kestra::wggl {
namespace {

struct TextKey {
  const char* key;
  std::string WgglParamTexts::*field;
};

constexpr TextKey kTextKeys[] = {
    {"Wgglbc\\Zrglys", &WgglParamTexts::zrglys}, {"Wgglbc\\Bchglys", &WgglParamTexts::bchglys},
    {"Wgglbc\\Fhxs", &WgglParamTexts::fhxs},     {"Wgglbc\\Ygjsfh", &WgglParamTexts::ygjsfh},
    {"Wgglbc\\Sfdrsl", &WgglParamTexts::sfdrsl}, {"Wgglbc\\Drrl", &WgglParamTexts::drrl},
    {"Wgglbc\\Dqxtlx", &WgglParamTexts::dqxtlx}, {"Wgglbc\\Ygfhxs", &WgglParamTexts::ygfhxs},
    {"Wgglbc\\Wgfhxs", &WgglParamTexts::wgfhxs}, {"Wgglbc\\Wgjsfh", &WgglParamTexts::wgjsfh},
    {"Wgglbc\\Ygdn", &WgglParamTexts::ygdn},     {"Wgglbc\\Wgdn", &WgglParamTexts::wgdn},
};

}  // namespace

WgglParamTexts ReadWgglParams(const std::string& path) {
  CInterDpData tree;
  tree.ReadDataFromIdpFile(path);
  WgglParamTexts t;
  for (const TextKey& k : kTextKeys) t.*k.field = idp::ValueOr(tree, k.key, t.*k.field);
  return t;
}

WgglInputs InputsOf(const WgglParamTexts& t) {
  WgglInputs n;
  n.cos_phi1 = text::WcsToD(t.zrglys);
  n.cos_phi2 = text::WcsToD(t.bchglys);
  n.alpha = text::WcsToD(t.fhxs);
  n.p_js = text::WcsToD(t.ygjsfh);
  n.alpha_p = text::WcsToD(t.ygfhxs);
  n.beta_q = text::WcsToD(t.wgfhxs);
  n.q_js = text::WcsToD(t.wgjsfh);
  n.w_m = text::WcsToD(t.ygdn);
  n.w_rm = text::WcsToD(t.wgdn);
  // The rating is shown as stored but counts as its integer part until a calculation reads it.
  n.rating = text::WToI(t.drrl);
  const int system = text::WToI(t.dqxtlx);
  n.system = system == 0 ? SystemKind::Designing : system == 1 ? SystemKind::InUse : SystemKind::None;
  n.count_capacitors = text::WToI(t.sfdrsl) != 0;
  return n;
}

void WriteWgglParams(const std::string& path, const WgglInputs& n) {
  CInterDpData tree;
  tree.ReadDataFromIdpFile(path);
  auto g = [](double v) { return text::Format("%g", v); };
  idp::SetValue(tree, "Wgglbc\\Zrglys", g(n.cos_phi1));
  idp::SetValue(tree, "Wgglbc\\Dqxtlx", text::Format("%d", static_cast<int>(n.system)));
  idp::SetValue(tree, "Wgglbc\\Ygfhxs", g(n.alpha_p));
  idp::SetValue(tree, "Wgglbc\\Wgfhxs", g(n.beta_q));
  idp::SetValue(tree, "Wgglbc\\Ygjsfh", g(n.p_js));
  idp::SetValue(tree, "Wgglbc\\Wgjsfh", g(n.q_js));
  idp::SetValue(tree, "Wgglbc\\Ygdn", g(n.w_m));
  idp::SetValue(tree, "Wgglbc\\Wgdn", g(n.w_rm));
  idp::SetValue(tree, "Wgglbc\\Bchglys", g(n.cos_phi2));
  idp::SetValue(tree, "Wgglbc\\Fhxs", g(n.alpha));
  idp::SetValue(tree, "Wgglbc\\Sfdrsl", text::Format("%d", n.count_capacitors ? 1 : 0));
  idp::SetValue(tree, "Wgglbc\\Drrl", g(n.rating));
  tree.WriteDataToIdpFile(path);
}

}  // namespace kestra::wggl
