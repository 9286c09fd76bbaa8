// The motor-start calculator as a designer uses it: the command opens the dialog in a host
// without windows on catalogues written here, a driver types and clicks by control id, and the
// parameter file and the reports are read back. Unless a case says otherwise the values are the
// dialog's defaults (the handbook example: copper 120 mm² of 0.025 km, 185 kW, Ir 337 A,
// Iq 2025 A, 0.38 kV; S" 50, SrT 0.63, UT 0.045, Sfh 0.4, cosφ 0.8, UM 0.38).
// The 6 kV motor of the reactor and ratio pages: Ir 60 A, Iq 390 A: Kst 6.5, Srm 1.732·6·60/1000
// = 0.62352, Sstm 4.05288 MVA; Skm 50, Qfh 0.24, UM 6, no cable.
#include "tests/djqd/djqd_fixture.h"

namespace kestra::djqd::test {
namespace {

TEST_F(DjqdDialog, HandbookExampleThenWhatOkStoresAndCancelLeaves) {
  Run([&](CDjqdCalDlg& d) {
    EXPECT_EQ(d.GetWindowText(), "电机起动计算");
    EXPECT_EQ(Texts(d, {20402, 20404, 20407, 20409, 20411, 20414, 20560, 20562, 20620, 20636}),
              (Strings{"50", "0.63", "0.045", "0.4", "0.8", "0.380", "120.000", "0.025", "185", "0.38"}));
    EXPECT_EQ(T(d, IDC_DJQD_P1_METHOD_GROUP), "全压起动");
    EXPECT_EQ(C(d, IDC_DJQD_P1_PICTURE).picture()->name, "Jsdl1");
    EXPECT_FALSE(C(d, IDC_DJQD_P1_TORQUE).IsWindowEnabled());
    Click(d, IDC_DJQD_CALC);
    EXPECT_EQ(Results(d, 0), (Strings{"0.898", "0.853", "1726.512"}));
    EXPECT_TRUE(d.calculated());
    EXPECT_TRUE(C(d, IDC_DJQD_P1_TORQUE).IsWindowEnabled() && C(d, IDC_DJQD_P1_TIME).IsWindowEnabled());
    Set(d, IDC_DJQD_P1_SECTION, "150");
    ui::act::Ok(d);
  });
  EXPECT_TRUE(host_.messages().empty());
  ExpectStored({{"当前页", "0"}, {"当前输入对话框", "0"}, {"Page1\\线缆参数\\截面", "150.000"},
                {"Page3\\线缆参数\\截面", "150.000"}, {"Page2\\输入参数\\系统短路容量", "50.000"},
                {"Page1\\Input4\\自耦变压器变压比", "0.550"}, {"Page1\\Input1\\计算结果\\实际起动电流", "1726.512"},
                {"Testzj\\电机起动转矩相对值", "<missing>"}});
  const std::string written = ReadFile(ParamFile());
  Run([&](CDjqdCalDlg& d) {
    EXPECT_EQ(T(d, IDC_DJQD_P1_SECTION), "150.000");
    Set(d, IDC_DJQD_IN1_SK, "70");
    Click(d, IDC_DJQD_CALC);
    ui::act::Cancel(d);
  });
  EXPECT_EQ(ReadFile(ParamFile()), written);
}

TEST_F(DjqdDialog, ChecksStopInOrderAndKeepWhatPassed) {
  // The last key of a working value wins, and an empty text reads as its default.
  Store("Page1\\Input1\\变压器阻抗电压相对值", "0.06");
  Store("Page1\\Input2\\变压器阻抗电压相对值", "");
  Run([&](CDjqdCalDlg& d) {
    EXPECT_EQ(T(d, IDC_DJQD_IN1_UT), "0.045");
    // No section or length: no cable. Sst = Sstm = 1.332774; Ustm = 11.1775/12.510274 = 0.893;
    // Istm = 0.893466·1.332774/(1.732·0.38)·1000 = 1809.268.
    Set(d, IDC_DJQD_P1_SECTION, "");
    Set(d, IDC_DJQD_P1_LENGTH, "");
    Click(d, IDC_DJQD_CALC);
    EXPECT_EQ(Results(d, 0), (Strings{"0.893", "0.893", "1809.268"}));
    const std::pair<int, const char*> bad[] = {{IDC_DJQD_P1_SECTION, "abc"},     {IDC_DJQD_P1_LENGTH, "0,5"},
                                               {IDC_DJQD_P1_SPEED, "-5"},        {IDC_DJQD_IN1_SRT, "0.0004"},
                                               {IDC_DJQD_IN1_COS, "1.2"},        {IDC_DJQD_IN1_UM, "1e3"}};
    for (const auto& [id, text] : bad) {
      const std::string before = T(d, id);
      Set(d, id, text);
      Click(d, IDC_DJQD_CALC);
      EXPECT_FALSE(d.calculated()) << text;
      Set(d, id, id == IDC_DJQD_P1_SECTION || id == IDC_DJQD_P1_LENGTH ? "" : before);
    }
    // A failing check leaves the values before it taken over.
    Set(d, IDC_DJQD_P1_LENGTH, "0.5");
    Set(d, IDC_DJQD_P1_POWER, "0");
    Click(d, IDC_DJQD_CALC);
    EXPECT_EQ(d.values().m_dLength, 0.5);
    EXPECT_EQ(Results(d, 0), (Strings{"0.893", "0.893", "1809.268"}));
    ui::act::Cancel(d);
  });
  EXPECT_EQ(host_.messages(), (Strings{kMsgSection, kMsgLength, kMsgSpeed, kMsgTransformerCapacity,
                                       kMsgPowerFactorAboveOne, kMsgBusVoltage, kMsgPower}));
}

TEST_F(DjqdDialog, MethodChangeShowsItsFormSlideAndKeepsTheOldFormsValues) {
  Run([&](CDjqdCalDlg& d) {
    Click(d, IDC_DJQD_CALC);
    Set(d, IDC_DJQD_IN1_SK, "60");
    ui::act::Select(C(d, IDC_DJQD_P1_METHOD), 2);
    EXPECT_EQ(T(d, IDC_DJQD_P1_METHOD_GROUP), "电抗器降压起动");
    EXPECT_EQ(C(d, IDC_DJQD_P1_PICTURE).picture()->name, "Jsdl3");
    EXPECT_TRUE(C(d, IDC_DJQD_IN3_XK).owner()->IsWindowVisible());
    EXPECT_FALSE(C(d, IDC_DJQD_IN1_SK).owner()->IsWindowVisible());
    EXPECT_EQ(Texts(d, {IDC_DJQD_IN3_SKM, IDC_DJQD_IN3_XK}), (Strings{"60", "1.05"}));
    EXPECT_EQ(Results(d, 0), (Strings{"", "", ""}));
    EXPECT_FALSE(C(d, IDC_DJQD_P1_TIME).IsWindowEnabled());
    // The spin steps by 0.01 and never leaves [0.01, 1].
    ui::act::Spin(C(d, IDC_DJQD_IN3_COS), true);
    EXPECT_EQ(T(d, IDC_DJQD_IN3_COS), "0.81");
    Set(d, IDC_DJQD_IN3_COS, "1.5");
    ui::act::Spin(C(d, IDC_DJQD_IN3_COS), true);
    EXPECT_EQ(T(d, IDC_DJQD_IN3_COS), "0.02");
    ui::act::Ok(d);
  });
  EXPECT_EQ(host_.messages(), (Strings{kMsgSpinPowerFactor}));
  ExpectStored({{"当前输入对话框", "2"}, {"Page1\\Input1\\计算结果\\母线电压相对值", "0.898"},
                {"Page1\\Input3\\功率因数", "0.020"}, {"Page1\\Input1\\系统短路容量", "60.000"}});
}

TEST_F(DjqdDialog, TheOverloadCheckIsKeptWhenTheMethodChangesNotAtOk) {
  // Transformer-motor unit, start values: Sst = 1/(1/1.332774 + 0.045/0.63 + 0.0058125/0.1444)
  // = 1.160098, Ustm = 50.24/51.400098 = 0.977430, ustM = 0.977430·1.160098/1.332774 = 0.851;
  // KI = 0.851·1.332774/0.63 = 1.800.
  auto calculate_and_time = [&](CDjqdCalDlg& d) {
    Click(d, IDC_DJQD_CALC);
    host_.QueueDriver([&](ui::Dialog& t) {
      Click(t, IDC_DJQD_CT_CALC);
      ui::act::Ok(t);
    });
    Click(d, IDC_DJQD_P1_TIME);
    EXPECT_EQ(Texts(d, {IDC_DJQD_P1_OVERLOAD_NAME, IDC_DJQD_P1_OVERLOAD_VALUE}), (Strings{"KI =", "1.800"}));
  };
  Run([&](CDjqdCalDlg& d) {
    ui::act::Select(C(d, IDC_DJQD_P1_METHOD), 1);
    calculate_and_time(d);
    ui::act::Ok(d);
  });
  ExpectStored({{"Page1\\Input2\\计算结果\\电机端子电压相对值", "0.851"},
                {"Page1\\Input2\\计算结果\\校验结果", "<missing>"}});
  Run([&](CDjqdCalDlg& d) {  // back on the transformer-motor unit
    calculate_and_time(d);
    ui::act::Select(C(d, IDC_DJQD_P1_METHOD), 0);
    ui::act::Ok(d);
  });
  ExpectStored({{"Page1\\Input2\\计算结果\\校验结果", "KI =1.800"}});
}

TEST_F(DjqdDialog, MotorCombosInCatalogueOrderFollowTheSeries) {
  Run([&](CDjqdCalDlg& d) {
    EXPECT_EQ(C(d, IDC_DJQD_P1_SERIES).items(), (Strings{"JS", "Y", "YB"}));
    EXPECT_EQ(C(d, IDC_DJQD_P1_MODEL).items(), (Strings{"JS-4/1", "JS-35/10"}));
    EXPECT_EQ(T(d, IDC_DJQD_P1_POWER), "185");  // the stored data, not the catalogue's
    ui::act::Select(C(d, IDC_DJQD_P1_SERIES), "Y");  // JS-4/1 is not there: the first model
    EXPECT_EQ(C(d, IDC_DJQD_P1_MODEL).items(), (Strings{"280S-4", "315S-4", "355M-4"}));
    EXPECT_EQ(Texts(d, {IDC_DJQD_P1_MODEL, IDC_DJQD_P1_POWER, IDC_DJQD_P1_IQ}), (Strings{"280S-4", "75", "980"}));
    ui::act::Select(C(d, IDC_DJQD_P1_MODEL), "355M-4");
    std::vector<std::string> queries;
    d.motor_db()->SetQueryObserver([&](const std::string& q) { queries.push_back(q); });
    ui::act::Select(C(d, IDC_DJQD_P1_SERIES), "YB");  // the same model text of the new series
    EXPECT_EQ(Texts(d, {IDC_DJQD_P1_MODEL, IDC_DJQD_P1_POWER}), (Strings{"355M-4", "250"}));
    const std::string where = " FROM [电机] WHERE ￥系列名称 LIKE \"YB\" AND ￥型号 LIKE \"355M-4\"";
    EXPECT_EQ(queries, (Strings{"SELECT DISTINCT [￥型号] FROM [电机] WHERE ￥系列名称 LIKE \"YB\"",
                                "SELECT [功率kW]" + where, "SELECT [转速r/min]" + where, "SELECT [额定电流A]" + where,
                                "SELECT [起动电流A]" + where, "SELECT [额定电压kV]" + where}));
    // A series typed by hand that the catalogue does not hold keeps the data typed.
    Set(d, IDC_DJQD_P1_POWER, "90");
    Set(d, IDC_DJQD_P1_SERIES, "自制");
    ui::act::Select(C(d, IDC_DJQD_P1_MODEL), 0);
    EXPECT_EQ(T(d, IDC_DJQD_P1_POWER), "90");
    d.motor_db()->SetQueryObserver(nullptr);
    ui::act::Cancel(d);
  });
}

TEST_F(DjqdDialog, DataFilesThatCannotServe) {
  // Without the slide library the dialog goes on without pictures and captions.
  std::filesystem::remove(root_ / "Image/djqd.slb");
  Run([&](CDjqdCalDlg& d) {
    ui::act::Select(C(d, IDC_DJQD_P1_METHOD), 1);
    EXPECT_EQ(T(d, IDC_DJQD_P1_METHOD_GROUP), "");
    EXPECT_EQ(C(d, IDC_DJQD_P1_PICTURE).picture(), nullptr);
    ui::act::Cancel(d);
  });
  EXPECT_NE(module_.transcript().find("[message] 错误!: 找不到文件Djqd.slb, 程序调用失败!"), std::string::npos);
  std::filesystem::copy_file(std::filesystem::path(KESTRA_ROOT_DIR) / "Image/djqd.slb", root_ / "Image/djqd.slb");
  const char* const header = "序号,￥系列名称,￥型号,功率kW\n1,Y,Y-1,1\n";
  WriteCatalogue("Motor.Mdb", {{"其他", header}});
  Run([&](CDjqdCalDlg& d) {
    EXPECT_EQ(C(d, IDC_DJQD_P1_SERIES).GetCount(), 0);
    ui::act::Cancel(d);
  });
  // Field 0 is never a search column.
  WriteCatalogue("Motor.Mdb", {{"电机", "￥系列名称,￥型号,功率kW\nY,Y-1,1\n"}});
  Run([&](CDjqdCalDlg& d) { ui::act::Cancel(d); });
  EXPECT_EQ(host_.messages(), (Strings{kMsgNoSlideLibrary, kMsgNoMotorTable, kMsgNoMotorSearchColumns}));
  std::filesystem::remove(root_ / "datcom/Motor.Mdb");
  Run([&](CDjqdCalDlg&) { ADD_FAILURE() << "shown without its catalogue"; });
  EXPECT_EQ(host_.messages().size(), 4u);  // the catalogue's own error
}

TEST_F(DjqdDialog, PickDialogSearchesSortsAndFillsTheForm) {
  Run([&](CDjqdCalDlg& d) {
    host_.QueueDriver([&](ui::Dialog& q) {
      EXPECT_EQ(q.GetWindowText(), "变压器阻抗平均值");
      EXPECT_EQ(C(q, IDC_DJQD_QUERY_TABLE).items(), (Strings{"干式", "油浸"}));
      ui::Control& list = C(q, IDC_DJQD_QUERY_LIST);
      EXPECT_EQ(list.columns(), (Strings{"系列", "型号", "容量kVA", "短路电压%"}));
      EXPECT_EQ(C(q, 1200).items(), (Strings{"SCB10", "SCB13"}));
      Click(q, IDC_DJQD_QUERY_SEARCH);  // nothing typed: the whole table
      EXPECT_EQ(list.GetItemCount(), 3);
      ui::act::HeaderClick(list, 2);
      EXPECT_EQ((Strings{list.GetItemText(0, 2), list.GetItemText(1, 2), list.GetItemText(2, 2)}),
                (Strings{"630", "800", "1000"}));
      Set(q, 1200, " SCB10 ");
      Click(q, IDC_DJQD_QUERY_SEARCH);
      EXPECT_EQ(list.GetItemCount(), 2);
      ui::act::Select(C(q, IDC_DJQD_QUERY_TABLE), 0);  // the same table again
      EXPECT_FALSE(C(q, IDC_DJQD_QUERY_SEARCH).IsWindowEnabled());
      ui::act::Select(list, 1);
      ui::act::Ok(q);
    });
    Click(d, IDC_DJQD_IN1_SRT_PICK);
    EXPECT_EQ(Texts(d, {IDC_DJQD_IN1_SRT, IDC_DJQD_IN1_UT}), (Strings{"1", "0.06"}));
    host_.QueueDriver([&](ui::Dialog& q) { ui::act::Ok(q); });  // no row picked: nothing changes
    Click(d, IDC_DJQD_IN1_SRT_PICK);
    EXPECT_EQ(T(d, IDC_DJQD_IN1_SRT), "1");
    ui::act::Cancel(d);
  });
}

TEST_F(DjqdDialog, ReactorPageChoosesTheCatalogueReactanceAndModel) {
  Run([&](CDjqdCalDlg& d) {
    ui::act::Tab(d, 1);
    Enter6kV(d, IDC_DJQD_P2_SKM, IDC_DJQD_P2_SFH, IDC_DJQD_P2_COS, IDC_DJQD_P2_UM, 1);
    // Ustm 0.95: Sst = 50.24/0.95 − 50.24 = 2.644211, Xk = 36·(1/2.644211 − 1/4.05288) = 4.732;
    // the catalogue has 3.6, 5.2 and 6.3: Xz 5.2, Sst = 1/(1/4.05288 + 5.2/36) = 2.556351,
    // Ustm = 50.24/52.796351 = 0.952, ustM = 0.600, Istm = 0.951581·2.556351/(1.732·6)·1000 = 234.082.
    Set(d, IDC_DJQD_P2_USTM_REQ, "0.95");
    Click(d, IDC_DJQD_CALC);
    EXPECT_EQ(Texts(d, {IDC_DJQD_P2_XK, IDC_DJQD_P2_XZ}), (Strings{"4.732", "5.200"}));
    EXPECT_EQ(Results(d, 1), (Strings{"0.952", "0.600", "234.082"}));
    // 5.2 Ω reactors start 200, 250, 300 and 15000 A: the smallest at or above 234.082 A.
    Click(d, IDC_DJQD_P2_CHOOSE_REACTOR);
    EXPECT_EQ(T(d, IDC_DJQD_P2_REACTOR_MODEL), "QKSG-250");
    // Ustm 0.953 gives Xk 5.647: Xz 6.3 and Istm 217.886; its only reactor starts 100 A.
    Set(d, IDC_DJQD_P2_USTM_REQ, "0.953");
    Click(d, IDC_DJQD_CALC);
    Click(d, IDC_DJQD_P2_CHOOSE_REACTOR);
    EXPECT_EQ(T(d, IDC_DJQD_P2_REACTOR_MODEL), "");
    // Ustm 0.98 gives Xk 26.229, above every reactor: Xk shown, nothing else changes.
    Set(d, IDC_DJQD_P2_USTM_REQ, "0.98");
    Click(d, IDC_DJQD_CALC);
    EXPECT_FALSE(d.calculated());
    EXPECT_EQ(Texts(d, {IDC_DJQD_P2_XK, IDC_DJQD_P2_XZ}), (Strings{"26.229", "6.300"}));
    host_.QueueDriver([&](ui::Dialog& q) {
      EXPECT_EQ(q.GetWindowText(), "起动电抗器数据");
      Click(q, IDC_DJQD_QUERY_SEARCH);
      ui::act::Select(C(q, IDC_DJQD_QUERY_LIST), 4);
      ui::act::Ok(q);
    });
    Click(d, IDC_DJQD_P2_USER_REACTOR);
    EXPECT_EQ(T(d, IDC_DJQD_P2_REACTOR_MODEL), "QKSG-36");
    ui::act::Ok(d);
  });
  EXPECT_EQ(host_.messages(), (Strings{kMsgNoReactorModel}));
  // The pick dialog is seen under the caption of its mode, at its opening as at its close.
  EXPECT_NE(module_.transcript().find("[dialog] 起动电抗器数据\n[closed] 起动电抗器数据 OK\n"), std::string::npos);
  ExpectStored({{"当前页", "1"}, {"Page2\\电抗器型号选择", "QKSG-36"}, {"Page2\\计算结果\\计算电抗值", "26.229"},
                {"Page2\\计算要求\\母线电压相对值", "0.980"}, {"Page1\\Input1\\母线标称电压", "6.000"}});
}

TEST_F(DjqdDialog, RatioPageAndTheActualRatio) {
  Run([&](CDjqdCalDlg& d) {
    ui::act::Tab(d, 2);
    Enter6kV(d, IDC_DJQD_P3_SKM, IDC_DJQD_P3_SFH, IDC_DJQD_P3_COS, IDC_DJQD_P3_UM, 2);
    Set(d, IDC_DJQD_P3_USTM_REQ, "0.95");
    EXPECT_FALSE(C(d, IDC_DJQD_P3_KK).IsWindowEnabled());
    // X = 4.05288/2.644211 = 1.532738 (no cable): Kz = 1/√X = 0.808.
    Click(d, IDC_DJQD_CALC);
    EXPECT_EQ(T(d, IDC_DJQD_P3_KZ), "0.808");
    // Kk 0.8: Sst = 0.64·4.05288 = 2.593843, Ustm = 50.24/52.833843 = 0.951,
    // ustM = 0.950906·2.593843/(0.8·4.05288) = 0.761, Istm = ustM·4.05288/(1.732·6)·1000 = 296.683.
    ui::act::Select(C(d, IDC_DJQD_P3_KK), "0.8");
    EXPECT_EQ(Results(d, 2), (Strings{"0.951", "0.761", "296.683"}));
    Set(d, IDC_DJQD_P3_KK, "");  // nothing typed yet: no word
    Set(d, IDC_DJQD_P3_KK, "0.9");
    EXPECT_EQ(Results(d, 2), (Strings{"", "", ""}));
    Set(d, IDC_DJQD_P3_KK, "0.8x");
    Set(d, IDC_DJQD_P3_KK, "0.808");  // equal to Kz: taken
    EXPECT_NE(T(d, IDC_DJQD_P3_USTM), "");
    // 200 km of paper-insulated cable: Xl 14 Ω, X = 4.05288·(0.378185 − 14/36) < 0.
    ui::act::Select(C(d, IDC_DJQD_P3_CABLE_TYPE), 3);
    Set(d, IDC_DJQD_P3_LENGTH, "200");
    Click(d, IDC_DJQD_CALC);
    EXPECT_TRUE(d.calculated());
    EXPECT_EQ(Texts(d, {IDC_DJQD_P3_KZ, IDC_DJQD_P3_KK, IDC_DJQD_P3_USTM}), (Strings{"", "", ""}));
    EXPECT_FALSE(C(d, IDC_DJQD_P3_KK).IsWindowEnabled());
    ui::act::Cancel(d);
  });
  EXPECT_EQ(host_.messages(), (Strings{kMsgActualRatioAbove, kMsgBadActualRatio, kMsgNoRatio}));
}

TEST_F(DjqdDialog, TorqueAndTimeDialogsAndTheOverloadCheck) {
  Run([&](CDjqdCalDlg& d) {
    ui::act::Select(C(d, IDC_DJQD_P1_METHOD), 3);
    Click(d, IDC_DJQD_CALC);  // Ustm 0.992, ustM 0.537, Sst 0.396726
    host_.QueueDriver([&](ui::Dialog& t) {
      EXPECT_EQ(T(t, IDC_DJQD_TZ_USTM_MOTOR), "0.537");
      EXPECT_TRUE(C(t, IDC_DJQD_TZ_USTM_MOTOR).read_only());
      Click(t, IDC_DJQD_TZ_CHECK);  // √(1.1·0.3/1.1) = 0.548 > 0.537
      EXPECT_EQ(T(t, IDC_DJQD_TZ_VERDICT), kTorqueFails);
      host_.QueueDriver([&](ui::Dialog& table) {
        ui::Control& cells = C(table, IDC_DJQD_ZHJ_TABLE);
        ASSERT_NE(cells.table(), nullptr);
        int row = 0;
        while (cells.table()->rows[static_cast<std::size_t>(row)][2] != "0.25") ++row;
        ui::act::PickCell(cells, row, 2);
        ui::act::Ok(table);
      });
      Click(t, IDC_DJQD_TZ_MJ_PICK);
      EXPECT_EQ(T(t, IDC_DJQD_TZ_MJ), "0.25");
      Click(t, IDC_DJQD_TZ_CHECK);  // √(1.1·0.25/1.1) = 0.5
      EXPECT_EQ(T(t, IDC_DJQD_TZ_VERDICT), kTorquePasses);
      ui::act::Ok(t);
    });
    Click(d, IDC_DJQD_P1_TORQUE);
    // t = 8·980²/[365·185·(0.537²·1.1 − 0.25)] = 7683200/4538.0784 = 1693.051 s;
    // SrTz = 0.992·0.396726·1693.051·2/120 = 11.105.
    host_.QueueDriver([&](ui::Dialog& t) {
      EXPECT_EQ(T(t, IDC_DJQD_CT_MJ), "0.25");
      Click(t, IDC_DJQD_CT_CALC);
      EXPECT_EQ(T(t, IDC_DJQD_CT_TIME), "1693.051");
      ui::act::Ok(t);
    });
    Click(d, IDC_DJQD_P1_TIME);
    EXPECT_EQ(Texts(d, {IDC_DJQD_P1_OVERLOAD_TITLE, IDC_DJQD_P1_OVERLOAD_NAME, IDC_DJQD_P1_OVERLOAD_VALUE}),
              (Strings{kOverloadTitle, "SrTz >", "11.105"}));
    EXPECT_TRUE(C(d, IDC_DJQD_P1_OVERLOAD_VALUE).IsWindowVisible());
    // Mj 0.5 is more than the motor's torque at 0.537: a negative time, no result to check with.
    host_.QueueDriver([&](ui::Dialog& t) {
      Set(t, IDC_DJQD_CT_MJ, "0.5");
      Click(t, IDC_DJQD_CT_CALC);
      EXPECT_EQ(T(t, IDC_DJQD_CT_TIME).front(), '-');
      ui::act::Ok(t);
    });
    Click(d, IDC_DJQD_P1_TIME);
    EXPECT_EQ(Texts(d, {IDC_DJQD_P1_OVERLOAD_TITLE, IDC_DJQD_P1_OVERLOAD_NAME}), (Strings{kNoCheckResult, ""}));
    host_.QueueDriver([&](ui::Dialog& t) { ui::act::Cancel(t); });  // cancelled: labels stay
    Click(d, IDC_DJQD_P1_TIME);
    EXPECT_EQ(T(d, IDC_DJQD_P1_OVERLOAD_TITLE), kNoCheckResult);
    ui::act::Cancel(d);  // the dialogs' keys are in the tree, which cancel does not write
  });
  EXPECT_FALSE(std::filesystem::exists(ParamFile()));
}

}  // namespace
}  // namespace kestra::djqd::test
