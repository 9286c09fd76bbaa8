#pragma once
// The CAD slide pictures of the dialogs: a slide library (".slb", named slides) or a single
// slide (".sld"), read into vector pictures that a picture control shows.
//
// A slide holds the vectors of a CAD screen (origin at the lower left, y upwards), written
// as records whose 2-byte words come in the byte order of the machine that made the slide
// (the header's test number tells which); a library is a directory of names and byte
// offsets in front of whole slides. Every slide is decoded when the file is read, so a
// truncated or garbled file fails at once, with the reason, and never half-shows.
#include <string>
#include <string_view>
#include <vector>

#include "ui/control.h"

namespace ui {

class CSlideLibraryData {
 public:
  // Reads a slide library, or a single slide named after its file (without folder and
  // extension). Returns the number of slides; 0 when the file cannot be read or is not a whole
  // slide library or slide, with the reason in error(). Slides read before are dropped.
  int Read(const std::string& path);
  // The same from the bytes of a file; a single slide takes single_name.
  int ReadBytes(std::string_view bytes, const std::string& single_name);

  int GetCount() const { return static_cast<int>(slides_.size()); }
  // Index of the slide with that name (ASCII letters in any case: CAD tools store library
  // names in capitals); -1 when the library has none.
  int FindSlide(std::string_view name) const;
  // The slide at index in picture coordinates (y downwards), named; nullptr out of range.
  const VectorPicture* GetPicture(int index) const;
  const std::string& error() const { return error_; }

 private:
  std::vector<VectorPicture> slides_;
  std::string error_;
};

}  // namespace ui
