#!/usr/bin/env bash
# Checks a sample report with readers that share no code with ours: python's XML parser (every
# part well-formed), python-docx (styles, alignment, super/subscript) and LibreOffice (loads it,
# sees the headings, its text and its Chinese fonts). Exit 77 (skipped) when a reader is missing.
# usage: check_docx_readers.sh WRITE_SAMPLE_REPORT FONTS_CONF
set -euo pipefail
tool=$1
fonts_conf=$2
work=$(mktemp -d -t kestra_readers.XXXXXX)
trap 'rm -rf "$work"' EXIT
docx=$work/无功功率补偿计算书.docx

"$tool" "$docx" >/dev/null
[ -s "$docx" ] || { echo "no report written"; exit 1; }

py=/usr/bin/python3
"$py" - "$docx" <<'PY'
import sys, zipfile, xml.dom.minidom
path = sys.argv[1]
with zipfile.ZipFile(path) as z:
    assert z.testzip() is None, "bad zip member"
    for name in z.namelist():
        xml.dom.minidom.parseString(z.read(name))  # raises when not well-formed
print("xml: every part well-formed")
PY

if "$py" -c "import docx" 2>/dev/null; then
  "$py" - "$docx" <<'PY'
import sys, docx
from docx.enum.text import WD_ALIGN_PARAGRAPH
d = docx.Document(sys.argv[1])
ps = d.paragraphs
styles = [p.style.name for p in ps]
assert len(ps) == 18, len(ps)
assert styles[0] == "Heading 1", styles
assert [i for i, s in enumerate(styles) if s == "Heading 2"] == [1, 3, 8, 14], styles
assert all(s == "Normal" for i, s in enumerate(styles) if i not in (0, 1, 3, 8, 14)), styles
assert ps[0].text == "无功功率补偿计算书" and ps[0].alignment == WD_ALIGN_PARAGRAPH.CENTER
assert ps[1].alignment == WD_ALIGN_PARAGRAPH.LEFT
assert ps[2].alignment is None, ps[2].alignment  # body text after a heading: no alignment of its own
assert ps[4].text == "\t自然平均功率因数cosφ1=0.75", repr(ps[4].text)
subs = [r.text for p in ps for r in p.runs if r.font.subscript]
sups = [r.text for p in ps for r in p.runs if r.font.superscript]
assert subs == ["js"], subs
assert sups == ["2", "0.5", "2", "0.5", "2<"], sups
assert ps[13].text == '\t校验: x2< 5 & a<Lb "引号"', repr(ps[13].text)
assert d.core_properties.title == "无功功率补偿计算书"
sec = d.sections[0]
assert (sec.page_width.mm, sec.page_height.mm) == (210.0, 297.0) or abs(sec.page_width.mm - 210) < 0.1
print("python-docx: styles, alignment, scripts and page as written")
PY
else
  echo "python-docx missing: skipped its checks"
fi

if ! command -v soffice >/dev/null; then
  echo "soffice missing: LibreOffice checks skipped"
  exit 77
fi
export FONTCONFIG_FILE=$fonts_conf
profile="file://$work/lo_profile"
for fmt in pdf "txt:Text (encoded):UTF8" fodt; do
  timeout 120 soffice -env:UserInstallation="$profile" --headless --convert-to "$fmt" --outdir "$work/out" "$docx" >/dev/null 2>&1 || true
done
base=$work/out/无功功率补偿计算书
for ext in pdf txt fodt; do
  [ -s "$base.$ext" ] || { echo "LibreOffice could not convert the report to $ext"; exit 1; }
done
"$py" - "$base" <<'PY'
import sys, re
base = sys.argv[1]
text = open(base + ".txt", encoding="utf-8-sig").read().splitlines()
for line in ["无功功率补偿计算书", "计算依据", "已知条件", "计算公式和过程", "计算结果",
             "\t补偿后功率因数cosφ2=0.95", "\t有功计算负荷Pjs =1000.00kW",
             "\tcosφ1=[1/(1+(Wrm/Wm)2 )]0.5 =[1/(1+(882.00/1000.00)2 )]0.5 =0.75",
             "\t补偿系数 qc=TANφ1-TANφ2=0.88-0.33=0.55", "\t并联电容器数量=14"]:
    assert line in text, "LibreOffice text lacks %r" % line
fodt = open(base + ".fodt", encoding="utf-8").read()
heads = re.findall(r'<text:h [^>]*text:outline-level="(\d)"', fodt)
assert heads == ["1", "2", "2", "2", "2"], heads
print("LibreOffice: converted; text lines and outline headings as written")
PY
if command -v pdffonts >/dev/null; then
  fonts=$(pdffonts "$base.pdf")
  echo "$fonts" | grep -q "NotoSerifCJK" || { echo "the body's 宋体 is not rendered with Noto Serif CJK:"; echo "$fonts"; exit 1; }
  echo "$fonts" | grep -q "NotoSansCJK" || { echo "the headings' 黑体 is not rendered with Noto Sans CJK:"; echo "$fonts"; exit 1; }
  echo "pdf fonts: Noto Serif CJK for 宋体, Noto Sans CJK for 黑体"
fi
if [ -n "${KESTRA_KEEP_READER_OUTPUT:-}" ]; then cp "$base.pdf" "$docx" "$KESTRA_KEEP_READER_OUTPUT/"; fi
