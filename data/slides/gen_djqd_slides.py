#!/usr/bin/env python3
"""Writes Image/djqd.slb, the pictures of the motor-start calculator: one-line diagrams of the
four starting methods, in the order of the method list.

  Jsdl1  full-voltage starting from a transformer-fed bus: system S", transformer T (SrT, UT),
         bus UM with the pre-connected load Sfh, breaker QF, cable W, motor M
  Jsdl2  transformer-motor unit: bus Skm/UM with Sfh, QF, the unit's transformer T, cable W, M
  Jsdl3  reactor starting: bus, QF, starting reactor L (Xk) bridged by the contactor KM, W, M
  Jsdl4  autotransformer starting: bus, QF, the autotransformer T (ratio Kz) switched in by KM1
         and closed at its star point by KM2, the run contactor KM3, W, M

The symbols are those of Chinese one-line diagrams; the letters are the symbols of the input
forms, so that a designer sees which value belongs where. Colours are for the black CAD screen:
the circuit white, device letters yellow, calculation symbols green.

Usage: gen_djqd_slides.py OUT_FILE
"""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from catalogue_csv import write_atomic  # noqa: E402
from slide_file import Slide, library_bytes  # noqa: E402
import stroke_font  # noqa: E402

WIDTH, HEIGHT = 480, 400
CIRCUIT, DEVICE, SYMBOL = 7, 2, 3
DEVICE_H, SYMBOL_H = 15, 14


def label(s, x, y, txt, color, h, align="left"):
    s.color = color
    stroke_font.text(s, x, y, txt, h, align)
    s.color = CIRCUIT


def bus(s, y, x1, x2):
    s.fill([(x1, y - 3), (x2, y - 3), (x2, y + 3), (x1, y + 3)])


def dot(s, x, y):
    s.fill([(x - 3, y - 1), (x - 1, y - 3), (x + 1, y - 3), (x + 3, y - 1),
            (x + 3, y + 1), (x + 1, y + 3), (x - 1, y + 3), (x - 3, y + 1)])


def system(s, x, y):
    """The supply system: a short bar with hatching above it."""
    bus(s, y, x - 40, x + 40)
    for i in range(9):
        hx = x - 36 + i * 9
        s.line(hx, y - 4, hx + 8, y - 12)


def switch(s, x, y1, y2, kind, name, left=False):
    """A breaker (x at the fixed contact) or a contactor (half circle) between y1 and y2, with
    its letters beside the blade."""
    fixed = y1 + (y2 - y1) * 0.3
    pivot = y2 - (y2 - y1) * 0.25
    s.line(x, y1, x, fixed)
    if kind == "breaker":
        s.line(x - 4, fixed - 4, x + 4, fixed + 4)
        s.line(x - 4, fixed + 4, x + 4, fixed - 4)
    else:
        s.arc(x, fixed + 4, 4, 90, -90, segments=6)
    s.line(x, pivot, x - 13, fixed + 2)
    s.line(x, pivot, x, y2)
    baseline = (fixed + pivot) / 2 + DEVICE_H / 2
    if left:
        label(s, x - 20, baseline, name, DEVICE, DEVICE_H, "right")
    else:
        label(s, x + 14, baseline, name, DEVICE, DEVICE_H)


def transformer(s, x, y, r=16):
    """Two winding circles from y downwards; returns the lower end."""
    s.circle(x, y + r, r)
    s.circle(x, y + 2.2 * r, r)
    return y + 3.2 * r


def reactor(s, x, y1, y2, r=13):
    """A starting reactor: the lead turns three quarters round and leaves from the centre."""
    cy = (y1 + y2) / 2
    s.line(x, y1, x, cy - r)
    s.arc(x, cy, r, 90, 360, segments=18)
    s.line(x + r, cy, x, cy)
    s.line(x, cy, x, y2)


def winding(s, x, y1, y2, turns=4):
    r = (y2 - y1) / turns / 2
    for i in range(turns):
        s.arc(x, y1 + r * (2 * i + 1), r, 90, -90, segments=8)
    return r


def arrow_down(s, x, y1, y2):
    s.line(x, y1, x, y2 - 10)
    s.fill([(x - 5, y2 - 11), (x + 5, y2 - 11), (x, y2)])


def motor(s, x, cy, r=26):
    s.circle(x, cy, r)
    label(s, x, cy + 8, "M", CIRCUIT, 16, "center")


def cable(s, x, y1, y2):
    s.line(x, y1, x, y2)
    label(s, x + 10, (y1 + y2) / 2 + DEVICE_H / 2, "W", DEVICE, DEVICE_H)


def supply_bus(s, y, load_x, feeder_x, feeder_end, x1=120, x2=420):
    """The bus the motor starts from, with its symbols, the pre-connected load and the motor
    feeder's breaker."""
    bus(s, y, x1, x2)
    switch(s, feeder_x, y, feeder_end, "breaker", "QF")
    label(s, x1 - 8, y - 4, "S_{km}", SYMBOL, SYMBOL_H, "right")
    label(s, x1 - 8, y + 18, "U_{M}", SYMBOL, SYMBOL_H, "right")
    arrow_down(s, load_x, y, y + 62)
    label(s, load_x + 10, y + 52, "S_{fh}", SYMBOL, SYMBOL_H)


def transformer_labels(s, x, top):
    label(s, x - 28, top + 32, "T", DEVICE, DEVICE_H, "right")
    label(s, x + 26, top + 22, "S_{rT}", SYMBOL, SYMBOL_H)
    label(s, x + 26, top + 46, "U_{T}", SYMBOL, SYMBOL_H)


def full_voltage():
    s = Slide("Jsdl1", WIDTH, HEIGHT)
    x = 200
    system(s, x, 30)
    label(s, x + 50, 37, 'S"', SYMBOL, SYMBOL_H)
    s.line(x, 33, x, 52)
    bottom = transformer(s, x, 52)
    transformer_labels(s, x, 52)
    s.line(x, bottom, x, 140)
    bus(s, 140, 120, 420)
    label(s, 112, 146, "U_{M}", SYMBOL, SYMBOL_H, "right")
    arrow_down(s, 360, 140, 202)
    label(s, 370, 192, "S_{fh}", SYMBOL, SYMBOL_H)
    switch(s, x, 140, 205, "breaker", "QF")
    cable(s, x, 205, 294)
    motor(s, x, 320)
    return s


def transformer_motor_unit():
    s = Slide("Jsdl2", WIDTH, HEIGHT)
    x = 200
    supply_bus(s, 40, 360, x, 110)
    s.line(x, 110, x, 125)
    bottom = transformer(s, x, 125)
    transformer_labels(s, x, 125)
    cable(s, x, bottom, 294)
    motor(s, x, 320)
    return s


def reactor_starting():
    s = Slide("Jsdl3", WIDTH, HEIGHT)
    x, bypass = 200, 262
    supply_bus(s, 40, 380, x, 110)
    top, bottom = 125, 225
    s.line(x, 110, x, top)
    dot(s, x, top)
    dot(s, x, bottom)
    reactor(s, x, top, bottom)
    label(s, x - 24, (top + bottom) / 2 - 2, "L", DEVICE, DEVICE_H, "right")
    label(s, x - 24, (top + bottom) / 2 + 20, "X_{k}", SYMBOL, SYMBOL_H, "right")
    s.polyline([(x, top), (bypass, top), (bypass, top + 15)])
    switch(s, bypass, top + 15, bottom - 15, "contactor", "KM")
    s.polyline([(bypass, bottom - 15), (bypass, bottom), (x, bottom)])
    cable(s, x, bottom, 294)
    motor(s, x, 320)
    return s


def autotransformer_starting():
    s = Slide("Jsdl4", WIDTH, HEIGHT)
    x, auto = 260, 170
    supply_bus(s, 40, 400, x, 100)
    top, tap = 112, 240
    dot(s, x, top)
    dot(s, x, tap)
    # run contactor straight through to the motor
    switch(s, x, top, tap, "contactor", "KM3")
    # start: KM1 to the autotransformer, its tap to the motor, KM2 closing its star point
    s.polyline([(x, top), (auto, top), (auto, top + 8)])
    switch(s, auto, top + 8, 172, "contactor", "KM1", left=True)
    w1, w2 = 176, 272
    s.line(auto, 172, auto, w1)
    r = winding(s, auto, w1, w2)
    s.line(x, tap, auto + r + 10, tap)
    s.fill([(auto + r + 1, tap), (auto + r + 11, tap - 5), (auto + r + 11, tap + 5)])
    label(s, auto - 16, w1 + 36, "T", DEVICE, DEVICE_H, "right")
    label(s, auto - 16, w1 + 60, "K_{z}", SYMBOL, SYMBOL_H, "right")
    s.line(auto, w2, auto, w2 + 6)
    switch(s, auto, w2 + 6, 338, "contactor", "KM2", left=True)
    s.line(auto - 12, 338, auto + 12, 338)  # the star point
    cable(s, x, tap, 300)
    motor(s, x, 326, r=24)
    return s


def main(argv):
    if len(argv) != 2:
        sys.stderr.write("usage: %s OUT_FILE\n" % os.path.basename(argv[0]))
        return 2
    try:
        slides = [full_voltage(), transformer_motor_unit(), reactor_starting(), autotransformer_starting()]
        os.makedirs(os.path.dirname(os.path.abspath(argv[1])), exist_ok=True)
        write_atomic(argv[1], library_bytes(slides))
    except (ValueError, OSError) as e:
        sys.stderr.write("%s: %s\n" % (os.path.basename(argv[0]), e))
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
