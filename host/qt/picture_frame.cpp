#include "host/qt/picture_frame.h"

#include <algorithm>

#include <QPainter>

namespace kestra::qt {

QColor SlideColor(int index) {
  switch (index) {
    case 1: return QColor(255, 0, 0);
    case 2: return QColor(255, 255, 0);
    case 3: return QColor(0, 255, 0);
    case 4: return QColor(0, 255, 255);
    case 5: return QColor(0, 0, 255);
    case 6: return QColor(255, 0, 255);
    case 8: return QColor(128, 128, 128);
    case 9: return QColor(192, 192, 192);
    default: return QColor(255, 255, 255);
  }
}

PictureFrame::PictureFrame(Look look, QWidget* parent) : QFrame(parent), look_(look) {
  switch (look) {
    case Look::Etched: setFrameStyle(QFrame::Box | QFrame::Sunken); break;
    case Look::Sunken: setFrameStyle(QFrame::Panel | QFrame::Sunken); break;
    case Look::Black:
    case Look::Gray:
    case Look::White: setFrameStyle(QFrame::Box | QFrame::Plain); break;
    default: setFrameStyle(QFrame::NoFrame); break;
  }
  QPalette pal = palette();
  if (look == Look::Black) pal.setColor(QPalette::WindowText, Qt::black);
  if (look == Look::Gray) pal.setColor(QPalette::WindowText, Qt::gray);
  if (look == Look::White) pal.setColor(QPalette::WindowText, Qt::white);
  setPalette(pal);
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

bool PictureFrame::SetPicture(const ui::VectorPicture* picture) {
  if (!picture && !picture_) return false;
  if (picture && picture_ && *picture == *picture_) return false;
  if (picture) picture_ = *picture;
  else picture_.reset();
  update();
  return true;
}

void PictureFrame::DrawSlide(QPainter& p, const QRect& area) const {
  // A slide is drawn as on the CAD screen it was made for: on black (its colours are chosen
  // for black), scaled to fit with the screen's proportions kept and centred.
  p.fillRect(area, Qt::black);
  const ui::VectorPicture& pic = *picture_;
  if (pic.width <= 0 || pic.height <= 0) return;
  const double proportion = pic.aspect > 0 ? pic.aspect : pic.width / static_cast<double>(pic.height);
  const double shown_w = std::min<double>(area.width(), area.height() * proportion);
  const double shown_h = shown_w / proportion;
  const double sx = shown_w / pic.width, sy = shown_h / pic.height;
  const double ox = area.left() + (area.width() - shown_w) / 2, oy = area.top() + (area.height() - shown_h) / 2;
  auto at = [&](int x, int y) { return QPointF(ox + (x + 0.5) * sx, oy + (y + 0.5) * sy); };
  p.save();
  p.setClipRect(area);
  p.setRenderHint(QPainter::Antialiasing);
  std::size_t next_fill = 0;
  auto fills_before = [&](std::size_t line) {
    for (; next_fill < pic.fills.size() && pic.fills[next_fill].first_line <= line; ++next_fill) {
      const auto& f = pic.fills[next_fill];
      QPolygonF polygon;
      for (const auto& pt : f.points) polygon << at(pt.x, pt.y);
      p.setPen(QPen(SlideColor(f.color), 1));
      p.setBrush(SlideColor(f.color));
      p.drawPolygon(polygon);
    }
  };
  for (std::size_t i = 0; i < pic.lines.size(); ++i) {
    fills_before(i);
    const auto& l = pic.lines[i];
    p.setPen(QPen(SlideColor(l.color), 1.2, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(at(l.x1, l.y1), at(l.x2, l.y2));
  }
  fills_before(pic.lines.size());
  p.restore();
}

void PictureFrame::paintEvent(QPaintEvent* e) {
  QPainter p(this);
  if (look_ == Look::BlackFill) p.fillRect(rect(), Qt::black);
  if (look_ == Look::GrayFill) p.fillRect(rect(), Qt::gray);
  if (look_ == Look::WhiteFill) p.fillRect(rect(), Qt::white);
  if (picture_) DrawSlide(p, contentsRect());
  p.end();
  QFrame::paintEvent(e);
}

}  // namespace kestra::qt
