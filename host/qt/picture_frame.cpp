#include "host/qt/picture_frame.h"

#include <algorithm>

#include <QPainter>

namespace kestra::qt {

namespace {

bool SameLines(const ui::VectorPicture& a, const ui::VectorPicture& b) {
  if (a.width != b.width || a.height != b.height || a.lines.size() != b.lines.size()) return false;
  for (std::size_t i = 0; i < a.lines.size(); ++i) {
    const auto& x = a.lines[i];
    const auto& y = b.lines[i];
    if (x.x1 != y.x1 || x.y1 != y.y1 || x.x2 != y.x2 || x.y2 != y.y2 || x.color != y.color) return false;
  }
  return true;
}

}  // namespace

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
  if (picture && picture_ && SameLines(*picture, *picture_)) return false;
  if (picture) picture_ = *picture;
  else picture_.reset();
  update();
  return true;
}

void PictureFrame::paintEvent(QPaintEvent* e) {
  QPainter p(this);
  if (look_ == Look::BlackFill) p.fillRect(rect(), Qt::black);
  if (look_ == Look::GrayFill) p.fillRect(rect(), Qt::gray);
  if (look_ == Look::WhiteFill) p.fillRect(rect(), Qt::white);
  if (picture_) {
    // A slide is drawn as on the CAD screen: on black, scaled to fit, aspect kept
    // (picture coordinates: y grows downwards, as in a bitmap).
    QRect area = contentsRect();
    p.fillRect(area, Qt::black);
    if (picture_->width > 0 && picture_->height > 0) {
      double scale = std::min(area.width() / static_cast<double>(picture_->width),
                              area.height() / static_cast<double>(picture_->height));
      double ox = area.left() + (area.width() - picture_->width * scale) / 2;
      double oy = area.top() + (area.height() - picture_->height * scale) / 2;
      for (const auto& l : picture_->lines) {
        p.setPen(QPen(SlideColor(l.color), 1));
        p.drawLine(QPointF(ox + l.x1 * scale, oy + l.y1 * scale), QPointF(ox + l.x2 * scale, oy + l.y2 * scale));
      }
    }
  }
  p.end();
  QFrame::paintEvent(e);
}

}  // namespace kestra::qt
