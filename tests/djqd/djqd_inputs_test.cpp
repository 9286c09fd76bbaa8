// The input checks in their order and the parameter file's keys, defaults and read order.
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "djqd/djqd_checks.h"
#include "djqd/djqd_messages.h"
#include "djqd/djqd_params.h"
#include "services/idp/idp_values.h"
#include "services/idp/inter_dp_data.h"

namespace {
using namespace kestra::djqd;

// Every field valid unless the case changes it.
struct Fields {
  std::map<Field, FieldValue> changed;
  FieldValue operator()(Field f) const {
    if (auto it = changed.find(f); it != changed.end()) return it->second;
    return {0, "0.38", 0.5};
  }
};

const char* Check(std::span<const InputCheck> checks, std::map<Field, FieldValue> changed) {
  return FirstFailure(checks, Fields{std::move(changed)});
}

TEST(DjqdChecks, TheFirstFailureInTheOrderOfEachDialog) {
  using F = Field;
  const FieldValue none{-1, "", 0}, bad_text{0, "1e3", 0}, negative{0, "", -5}, tiny{0, "", 0.0004};
  const auto start0 = StartChecks(StartMethod::FullVoltage);
  const auto start2 = StartChecks(StartMethod::Reactor);
  const auto start3 = StartChecks(StartMethod::Autotransformer);
  EXPECT_EQ(Check(start0, {}), nullptr);
  // The cable comes first on the first page, after the inputs on the other two.
  EXPECT_STREQ(Check(start0, {{F::CableType, none}, {F::ShortCircuit, negative}}), kMsgNoCableType);
  EXPECT_STREQ(Check(RequirementChecks(), {{F::CableType, none}, {F::ShortCircuit, negative}}), kMsgShortCircuit);
  EXPECT_STREQ(Check(start0, {{F::Section, bad_text}, {F::Length, negative}}), kMsgSection);
  EXPECT_STREQ(Check(start0, {{F::Length, {0, "-5", -5}}}), kMsgLength);
  EXPECT_STREQ(Check(start0, {{F::Power, tiny}}), kMsgPower);  // prints as 0.000
  EXPECT_STREQ(Check(start0, {{F::RatedVoltage, negative}, {F::ShortCircuit, negative}}), kMsgRatedVoltage);
  // Each form checks its own fields only.
  EXPECT_EQ(Check(start0, {{F::Reactance, negative}, {F::Ratio, bad_text}}), nullptr);
  EXPECT_STREQ(Check(start0, {{F::ImpedanceVoltage, negative}}), kMsgImpedanceVoltage);
  EXPECT_STREQ(Check(start2, {{F::Reactance, negative}}), kMsgReactance);
  EXPECT_EQ(Check(start2, {{F::TransformerCapacity, negative}}), nullptr);
  EXPECT_STREQ(Check(start3, {{F::Ratio, {0, "", 0.5}}}), kMsgRatio);  // the combo's text counts
  EXPECT_STREQ(Check(start3, {{F::BusVoltage, {0, "0.38kV", 0.38}}}), kMsgBusVoltage);
  // A power factor that prints as 1.000 but lies above 1 has no sine.
  EXPECT_STREQ(Check(start3, {{F::PowerFactor, {0, "", 1.0004}}}), kMsgPowerFactorAboveOne);
  // It is positive, so every field check runs before it is refused.
  const FieldValue above_one{0, "", 1.2};
  EXPECT_STREQ(Check(start0, {{F::PowerFactor, above_one}, {F::BusVoltage, bad_text}}), kMsgBusVoltage);
  EXPECT_STREQ(Check(RequirementChecks(), {{F::PowerFactor, above_one}, {F::Power, negative}}), kMsgPower);
  EXPECT_STREQ(Check(RatioRecheckChecks(), {{F::PowerFactor, above_one}, {F::RatedVoltage, negative}}),
               kMsgRatedVoltage);
  EXPECT_STREQ(Check(RequirementChecks(), {{F::PowerFactor, {0, "", 0}}}), kMsgPowerFactor);
  EXPECT_EQ(Check(RequirementChecks(), {{F::PowerFactor, {0, "", 1}}}), nullptr);
  EXPECT_STREQ(Check(RequirementChecks(), {{F::RequiredUstm, {0, "", 1}}}), kMsgRequiredUstm);
  // The re-check with an actual ratio has its own words and puts UM before Ur.
  EXPECT_STREQ(Check(RatioRecheckChecks(), {{F::CableType, none}}), kMsgNoCableTypeRecheck);
  EXPECT_STREQ(Check(RatioRecheckChecks(), {{F::RatedVoltage, negative}, {F::BusVoltage, bad_text}}), kMsgBusVoltage);
  EXPECT_EQ(Check(RatioRecheckChecks(), {{F::RequiredUstm, {0, "", 0.9996}}}), nullptr);
  EXPECT_STREQ(Check(RatioRecheckChecks(), {{F::RequiredUstm, {0, "", 1}}}), kMsgRequiredUstmRecheck);
  EXPECT_STREQ(Check(TorqueChecks(), {{F::Mj, tiny}}), kMsgMj);
  EXPECT_STREQ(Check(TimeChecks(), {{F::Mstp, negative}, {F::Mj, negative}}), kMsgMstp);
}

TEST(DjqdChecks, ValuesBeforeTheFailingOneAreTakenOver) {
  std::vector<Field> passed;
  const char* msg = FirstFailure(StartChecks(StartMethod::FullVoltage), Fields{{{Field::Speed, {0, "", -1}}}},
                                 [&](Field f) { passed.push_back(f); });
  EXPECT_STREQ(msg, kMsgSpeed);
  EXPECT_EQ(passed, (std::vector<Field>{Field::CableType, Field::Section, Field::Length, Field::Power}));
}

TEST(DjqdChecks, TheActualRatioPickedOrTyped) {
  using V = ActualRatioVerdict;
  struct Case {
    const char* text;
    bool typed;
    V verdict;
  };
  const Case cases[] = {{"0.6", false, V::Ok},       {"0.766", false, V::Ok}, {"0.8", false, V::AboveCalculated},
                        {"0", false, V::Invalid},    {"-0.6", true, V::Invalid}, {"0.6a", true, V::Invalid},
                        {"", true, V::Silent},       {"0.", true, V::Silent}, {"0.64", true, V::Ok}};
  for (const Case& c : cases) EXPECT_EQ(ReadActualRatio(c.text, c.typed, 0.766).verdict, c.verdict) << c.text;
  EXPECT_EQ(ReadActualRatio("0.64", true, 0.766).kk, 0.64);
}

std::string Stored(const CInterDpData& tree, const char* key) {
  return kestra::idp::ValueOr(tree, FullKey(key), "(none)");
}

TEST(DjqdParams, DefaultsAndLaterKeysOverridingEarlierOnes) {
  CInterDpData tree;
  WorkingValues v;
  ReadParams(tree, v);
  // Forms 2 and 3 default to UM 6 and Sfh 1.0, but the last pages' defaults come later.
  EXPECT_EQ(v.m_dUM, 0.38);
  EXPECT_EQ(v.m_dSfh, 0.4);
  EXPECT_EQ(v.m_dSk, 50);
  EXPECT_EQ(v.m_dUT, 0.045);
  EXPECT_EQ(v.m_dXk, 1.05);
  EXPECT_EQ(v.m_dKz, 0.55);
  EXPECT_EQ(v.m_dSection, 120);
  EXPECT_EQ(v.m_dLength, 0.025);
  EXPECT_EQ(v.m_dIq, 2025);
  EXPECT_EQ(v.m_dUstmReq, 0.9);
  EXPECT_EQ(v.m_dMstM, 1.1);
  EXPECT_EQ(v.m_dJ2, 8);

  auto set = [&](const char* key, const char* text) { kestra::idp::SetValue(tree, FullKey(key), text); };
  set("Page1\\Input1\\变压器阻抗电压相对值", "0.06");
  set("Page1\\Input2\\变压器阻抗电压相对值", "");
  set("Page1\\Input3\\母线标称电压", "10");
  set("Page3\\输入参数\\预接负荷", "2.5");
  set("Page3\\线缆参数\\类型", "2.7");
  set("Page3\\电机选择\\功率", "abc");
  set(kKeyCurInput, "3");
  ReadParams(tree, v);
  EXPECT_EQ(v.m_dUT, 0.045);  // the empty later key takes its default
  EXPECT_EQ(v.m_dUM, 0.38);   // the form's own value is overridden by the pages after it
  EXPECT_EQ(v.m_dSfh, 2.5);
  EXPECT_EQ(v.m_nCableType, 2);
  EXPECT_EQ(v.m_dPr, 0);
  EXPECT_EQ(v.m_nCurInput, 3);
}

TEST(DjqdParams, WhatOkAndAMethodChangeStore) {
  WorkingValues v;
  v.m_nCurPage = 2;
  v.m_nCableType = 1;
  v.m_dUM = 10.5;
  v.m_dXk = 1.0504;
  v.m_dUstmReq = 0.85;
  v.m_dMstM = 1.4;
  CInterDpData tree;
  WriteInputParams(tree, v);
  EXPECT_EQ(Stored(tree, kKeyCurPage), "2");
  EXPECT_EQ(Stored(tree, "Page2\\线缆参数\\类型"), "1");
  EXPECT_EQ(Stored(tree, "Page1\\Input3\\母线标称电压"), "10.500");
  EXPECT_EQ(Stored(tree, "Page1\\Input3\\每相电抗器额定电抗"), "1.050");
  EXPECT_EQ(Stored(tree, "Page3\\计算要求\\母线电压相对值"), "0.850");
  EXPECT_EQ(Stored(tree, kKeyMstm), "(none)");  // the torque dialog's own key
  WorkingValues back;
  ReadParams(tree, back);
  EXPECT_EQ(back.m_nCurPage, 2);
  EXPECT_EQ(back.m_dUM, 10.5);
  EXPECT_EQ(back.m_dXk, 1.05);
  EXPECT_EQ(back.m_dMstM, 1.1);

  CInterDpData form_only;
  WriteParams(form_only, v, FormOwner(2));
  EXPECT_EQ(Stored(form_only, "Page1\\Input3\\母线标称电压"), "10.500");
  EXPECT_EQ(Stored(form_only, "Page1\\Input4\\母线标称电压"), "(none)");
  EXPECT_EQ(Stored(form_only, "Page2\\输入参数\\母线标称电压"), "(none)");
}

}  // namespace
