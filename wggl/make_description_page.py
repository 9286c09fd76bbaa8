#!/usr/bin/env python3
"""Writes data/Image/Wgglbc.RTF, the description page of the reactive compensation calculator.

The page is plain ASCII RTF: Chinese text goes in as \\uN escapes (with "?" for readers without
Unicode), so the file reads the same whatever code page the reader assumes.
Run from the repository root: python3 wggl/make_description_page.py
"""
import pathlib
import re

OUT = pathlib.Path(__file__).resolve().parent.parent / "data" / "Image" / "Wgglbc.RTF"


def esc(text):
    out = []
    for ch in text:
        cp = ord(ch)
        if ch in "\\{}":
            out.append("\\" + ch)
        elif ch == "\t":
            out.append("\\tab ")
        elif cp < 0x80:
            out.append(ch)
        else:
            n = cp if cp < 0x8000 else cp - 0x10000
            out.append("\\u%d?" % n)
    return "".join(out)


def marked(text):
    """Text with _{sub}, ^{sup} and **bold** marks as RTF groups."""
    parts = []
    pos = 0
    for m in re.finditer(r"_\{([^}]*)\}|\^\{([^}]*)\}|\*\*([^*]*)\*\*", text):
        parts.append(esc(text[pos:m.start()]))
        if m.group(1) is not None:
            parts.append("{\\sub " + esc(m.group(1)) + "}")
        elif m.group(2) is not None:
            parts.append("{\\super " + esc(m.group(2)) + "}")
        else:
            parts.append("{\\b " + esc(m.group(3)) + "}")
        pos = m.end()
    parts.append(esc(text[pos:]))
    return "".join(parts)


def title(text):
    return "\\pard\\qc\\sb120\\sa120{\\b\\fs32 " + marked(text) + "}\\par\n"


def heading(text):
    return "\\pard\\ql\\sb120\\sa60{\\b\\fs24 " + marked(text) + "}\\par\n"


def para(text, indent=True):
    first = "\\fi420" if indent else ""
    return "\\pard\\qj" + first + "\\sa60 " + marked(text) + "\\par\n"


def formula(text):
    return "\\pard\\qc\\sa60{\\i " + marked(text) + "}\\par\n"


def item(text):
    return "\\pard\\ql\\li420\\sa40 " + marked(text) + "\\par\n"


body = [
    title("无功功率补偿计算说明"),
    heading("一、用途"),
    para("本计算用于确定低压或高压配电系统集中装设并联电容器时所需的无功补偿容量Q_{c}、"
         "所需电容器台数及实际补偿容量。计算方法依据《民用建筑电气设计手册》（湖南电气情报网编）"
         "第94页公式2.6.2-4、2.6.2-5，计算书中引用同一出处。"),
    heading("二、补偿前自然平均功率因数cosφ_{1}"),
    para("cosφ_{1}可直接输入，也可在“补偿前平均功率计算”中按系统所处阶段求得："),
    para("**1．正在设计中的电气系统**：由计算负荷求平均功率因数", indent=True),
    formula("cosφ_{1}＝1／√[1＋(βQ_{js}／αP_{js})^{2}]"),
    para("式中α为年平均有功负荷系数，β为年平均无功负荷系数，P_{js}为有功计算负荷(kW)，"
         "Q_{js}为无功计算负荷(kVar)。"),
    para("**2．已使用一年的电气系统**：由一年的电能消耗量求平均功率因数"),
    formula("cosφ_{1}＝1／√[1＋(W_{rm}／W_{m})^{2}]"),
    para("式中W_{m}为年有功电能消耗量(kW.h)，W_{rm}为年无功电能消耗量(kVar.h)，"
         "二者取自电能表一年的累计读数。"),
    para("求得的cosφ_{1}小于0.1时视为数据有误，不予采用；有功计算负荷或有功电能消耗量为零时无法计算。"),
    heading("三、补偿容量"),
    formula("Q_{c}＝αP_{js}(tanφ_{1}－tanφ_{2})＝αq_{c}P_{js}"),
    formula("tanφ＝√(1－cos^{2}φ)／cosφ"),
    para("式中cosφ_{2}为补偿后要求达到的功率因数，q_{c}＝tanφ_{1}－tanφ_{2}为补偿率(kVar/kW)。"
         "tanφ_{1}、tanφ_{2}按两位小数取值后相减，与查表计算的习惯一致。"
         "若cosφ_{2}低于cosφ_{1}，算得的Q_{c}为负，表示无需补偿，程序给出提示并显示其绝对值；"
         "计算书中保留负号，以便核对。"),
    heading("四、电容器台数及实际补偿容量"),
    formula("n＝⌈Q_{c}／q⌉，实际补偿容量＝n·q"),
    para("式中q为单个电容器的额定容量(kVar)。台数向上取整，但Q_{c}／q超出整数的部分不大于约0.0001时"
         "不再增加一台，以免因计算舍入多选电容器。勾选“计算电容数量”后才计算台数。"),
    heading("五、符号、单位及常用取值"),
    item("P_{js}：有功计算负荷，kW"),
    item("Q_{js}：无功计算负荷，kVar"),
    item("α：年平均有功负荷系数，一般取0.7～0.75"),
    item("β：年平均无功负荷系数，一般取0.76～0.82"),
    item("W_{m}、W_{rm}：年有功、无功电能消耗量，kW.h、kVar.h"),
    item("cosφ_{2}：补偿后功率因数，一般要求不低于0.9，高压供电用户宜达到0.95"),
    item("q：单个电容器额定容量，常用低压电容器为15、20、25、30、40 kVar"),
    para("输入框旁的上下箭头按步长调整数值：功率因数每次0.05，取值0.05～1；负荷系数每次0.01，取值不大于1。"),
    heading("六、算例"),
    para("cosφ_{1}＝0.75，cosφ_{2}＝0.95，α＝0.75，P_{js}＝1000kW："
         "tanφ_{1}＝0.88，tanφ_{2}＝0.33，q_{c}＝0.55，"
         "Q_{c}＝0.75×0.55×1000＝412.5kVar；选用q＝30kVar的电容器时，"
         "n＝⌈412.5／30⌉＝14台，实际补偿容量14×30＝420kVar。"),
    heading("七、计算书"),
    para("“输出计算文件”先按当前输入重新计算，再生成计算书，内容包括计算依据、已知条件、"
         "计算公式和过程及计算结果。单个电容器额定容量、台数和实际补偿容量取最近一次台数计算的结果。"),
]

rtf = ("{\\rtf1\\ansi\\ansicpg936\\deff0\\uc1"
       "{\\fonttbl{\\f0\\fnil\\fcharset134 \\u23435?\\u20307?;}{\\f1\\fswiss Arial;}}\n"
       "{\\info{\\title Wgglbc}}\n"
       "\\viewkind4\\f0\\fs21\n" + "".join(body) + "}\n")

OUT.parent.mkdir(parents=True, exist_ok=True)
OUT.write_bytes(rtf.encode("ascii"))
print(OUT)
