#include "tests/report/sample_report.h"

namespace kestra::report::testing {

void WriteSampleReport(ReportWriter& w) {
  w.TitleBlock("无功功率补偿计算书");
  w.SectionHeading("计算依据");
  w.BodyBlock("\t《民用建筑电气设计手册》（湖南电气情报网编）p94 公式2.6.2-4,2.6.2-5");
  w.SectionHeading("已知条件");
  w.BodyBlock(
      "\t自然平均功率因数cosφ1=0.75\n\t补偿后功率因数cosφ2=0.95\n\t负荷系数α=0.75\n"
      "\t有功计算负荷P<L>js</L>=1000.00kW");
  w.SectionHeading("计算公式和过程");
  w.BodyBlock(
      "\t补偿前企业自然平均功率因数(已生产企业)\n"
      "\tcosφ1=[1/(1+(Wrm/Wm)<U>2</U>)]<U>0.5</U>=[1/(1+(882.00/1000.00)<U>2</U>)]<U>0.5</U>=0.75\n"
      "\t补偿系数 qc=TANφ1-TANφ2=0.88-0.33=0.55\n"
      "\t计算补偿容量 Qc=αqc Pjs=0.75*0.55*1000.00=412.50kVar");
  w.BodyBlock("\t校验: x<U>2</U><5 & a<Lb \"引号\"");
  w.SectionHeading("计算结果");
  w.BodyBlock("\t单个电容器额定容量=30.00kVar\n\t实际补偿容量=420.00kVar\n\t并联电容器数量=14",
              BlockEnd::kEndsReport);
}

}  // namespace kestra::report::testing
