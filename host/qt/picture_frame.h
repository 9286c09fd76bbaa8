#pragma once
// Frames and picture placeholders: the static frame styles of the templates, and a
// vector picture (a slide) drawn to fit inside.
#include <optional>

#include <QFrame>

#include "ui/control.h"

class QPainter;

namespace kestra::qt {

class PictureFrame : public QFrame {
 public:
  enum class Look { Etched, Sunken, Black, Gray, White, BlackFill, GrayFill, WhiteFill, None };
  PictureFrame(Look look, QWidget* parent);
  // Shows the picture (or none); returns false when it was already shown.
  bool SetPicture(const ui::VectorPicture* picture);
  bool has_picture() const { return picture_.has_value(); }

 protected:
  void paintEvent(QPaintEvent* e) override;

 private:
  void DrawSlide(QPainter& p, const QRect& area) const;
  Look look_;
  std::optional<ui::VectorPicture> picture_;
};

// The colour of a CAD colour index as slides use it (7 is white on the black screen).
QColor SlideColor(int index);

}  // namespace kestra::qt
