#include "ui/slide_library.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <utility>

namespace ui {
namespace {

// The identification texts that open a slide and a library (the library's is followed by
// NULs up to 32 bytes).
constexpr std::string_view kSlideId("AutoCAD Slide\r\n\x1a\0", 17);
constexpr std::string_view kLibraryId("AutoCAD Slide Library 1.0\r\n\x1a", 28);
constexpr std::size_t kSlideHeaderBytes = 31;
constexpr std::size_t kLibraryHeaderBytes = 32;
constexpr std::size_t kEntryBytes = 36;  // name (32, NUL-padded) and offset (4, low byte first)
constexpr std::size_t kNameBytes = 32;
// Slide libraries of dialogs are a few kilobytes; anything near this is not one.
constexpr std::uintmax_t kLargestFile = 64u << 20;

class SlideError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

std::string At(std::size_t at) { return " at byte " + std::to_string(at); }

// One slide's records, read in the byte order its header names; every read is checked
// against the end of the file, so a slide cut short fails instead of reading beyond.
class SlideDecoder {
 public:
  SlideDecoder(std::string_view file, std::size_t start) : file_(file), start_(start) {}

  VectorPicture Decode(std::string name) {
    Need(start_, kSlideHeaderBytes, "the slide header");
    if (file_.substr(start_, kSlideId.size()) != kSlideId) throw SlideError("no slide" + At(start_));
    const int type = Byte(start_ + 17), level = Byte(start_ + 18);
    if (type != 0x56 || level != 2)
      throw SlideError("a slide of type " + std::to_string(type) + " level " + std::to_string(level) + At(start_) +
                       "; only level 2 slides can be read");
    const int test = Byte(start_ + 29) | Byte(start_ + 30) << 8;
    if (test == 0x3412) big_endian_ = true;
    else if (test != 0x1234) throw SlideError("an unknown byte order (test number)" + At(start_ + 29));
    const int high_x = Word(start_ + 19), high_y = Word(start_ + 21);
    const std::uint32_t aspect = static_cast<std::uint32_t>(Byte(start_ + 23)) | Byte(start_ + 24) << 8 |
                                 Byte(start_ + 25) << 16 | static_cast<std::uint32_t>(Byte(start_ + 26)) << 24;

    VectorPicture pic;
    pic.name = std::move(name);
    pic.width = high_x + 1;
    pic.height = high_y + 1;
    pic.aspect = aspect / 1e7;
    // Slides count y upwards from the lower left; pictures downwards from the top.
    auto flip = [&](int y) { return high_y - y; };
    int color = 7;  // white on the black CAD screen until a colour record says otherwise
    int last_x = 0, last_y = 0;
    std::optional<VectorPicture::Fill> fill;
    for (std::size_t at = start_ + kSlideHeaderBytes;;) {
      Need(at, 2, "the slide before its end record");
      const int head = Word(at);
      const int kind = head >> 8;
      const int low = static_cast<std::int8_t>(head & 0xFF);
      if (kind <= 0x7F) {  // vector: from x (this word), from y, to x, to y
        Need(at, 8, "a vector");
        const int x1 = head, y1 = Signed(at + 2), x2 = Signed(at + 4), y2 = Signed(at + 6);
        pic.lines.push_back({x1, flip(y1), x2, flip(y2), color});
        last_x = x1;
        last_y = y1;
        at += 8;
      } else if (kind == 0xFB) {  // offset vector: both ends as byte offsets from the last point
        Need(at, 5, "an offset vector");
        const int x1 = last_x + low, y1 = last_y + SignedByte(at + 2);
        const int x2 = last_x + SignedByte(at + 3), y2 = last_y + SignedByte(at + 4);
        pic.lines.push_back({x1, flip(y1), x2, flip(y2), color});
        last_x = x1;
        last_y = y1;
        at += 5;
      } else if (kind == 0xFC) {  // end of the slide
        if (fill) throw SlideError("a solid fill left open" + At(at));
        return pic;
      } else if (kind == 0xFD) {  // solid fill: a start, the vertices, an end (y < 0 starts and ends)
        Need(at, 6, "a solid fill");
        const int x = Signed(at + 2), y = Signed(at + 4);
        if (y < 0 && fill) {
          pic.fills.push_back(std::move(*fill));
          fill.reset();
        } else if (y < 0) {
          fill = VectorPicture::Fill{{}, color, pic.lines.size()};
        } else if (fill) {
          fill->points.push_back({x, flip(y)});
        } else {
          throw SlideError("a solid fill vertex outside a fill" + At(at));
        }
        at += 6;
      } else if (kind == 0xFE) {  // common endpoint: from the last point by byte offsets
        Need(at, 3, "a common endpoint vector");
        const int x = last_x + low, y = last_y + SignedByte(at + 2);
        pic.lines.push_back({x, flip(y), last_x, flip(last_y), color});
        last_x = x;
        last_y = y;
        at += 3;
      } else if (kind == 0xFF) {
        color = head & 0xFF;
        at += 2;
      } else {
        throw SlideError("an unknown record " + std::to_string(kind) + At(at));
      }
    }
  }

 private:
  void Need(std::size_t at, std::size_t n, const char* what) const {
    if (at > file_.size() || file_.size() - at < n) throw SlideError(std::string(what) + " cut short" + At(at));
  }
  int Byte(std::size_t at) const { return static_cast<unsigned char>(file_[at]); }
  int SignedByte(std::size_t at) const { return static_cast<std::int8_t>(file_[at]); }
  int Word(std::size_t at) const {
    return big_endian_ ? Byte(at) << 8 | Byte(at + 1) : Byte(at) | Byte(at + 1) << 8;
  }
  int Signed(std::size_t at) const { return static_cast<std::int16_t>(Word(at)); }

  std::string_view file_;
  std::size_t start_;
  bool big_endian_ = false;
};

std::vector<VectorPicture> ReadLibrary(std::string_view file) {
  // The whole directory first, so that a directory cut short is told as such.
  std::vector<std::pair<std::string, std::uint32_t>> entries;
  for (std::size_t at = kLibraryHeaderBytes;; at += kEntryBytes) {
    if (file.size() < at || file.size() - at < kEntryBytes) throw SlideError("the slide directory cut short" + At(at));
    if (file[at] == '\0') break;  // the directory ends with an empty name
    std::string name(file.substr(at, kNameBytes));
    name.resize(name.find('\0') == std::string::npos ? name.size() : name.find('\0'));
    std::uint32_t offset = 0;
    for (int i = 3; i >= 0; --i) offset = offset << 8 | static_cast<unsigned char>(file[at + kNameBytes + i]);
    entries.emplace_back(std::move(name), offset);
  }
  std::vector<VectorPicture> slides;
  for (auto& [name, offset] : entries) {
    try {
      slides.push_back(SlideDecoder(file, offset).Decode(name));
    } catch (const SlideError& e) {
      throw SlideError("slide " + name + ": " + e.what());
    }
  }
  return slides;
}

bool SameName(std::string_view a, std::string_view b) {
  auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (lower(a[i]) != lower(b[i])) return false;
  return true;
}

}  // namespace

int CSlideLibraryData::ReadBytes(std::string_view bytes, const std::string& single_name) {
  slides_.clear();
  error_.clear();
  try {
    if (bytes.starts_with(kLibraryId)) slides_ = ReadLibrary(bytes);
    else if (bytes.starts_with(kSlideId)) slides_.push_back(SlideDecoder(bytes, 0).Decode(single_name));
    else throw SlideError("not a slide library or slide");
    if (slides_.empty()) throw SlideError("the slide library holds no slides");
  } catch (const SlideError& e) {
    slides_.clear();
    error_ = e.what();
  }
  return GetCount();
}

int CSlideLibraryData::Read(const std::string& path) {
  slides_.clear();
  std::error_code ec;
  const std::uintmax_t size = std::filesystem::file_size(path, ec);
  if (ec) {
    error_ = path + ": cannot read (" + ec.message() + ")";
    return 0;
  }
  if (size > kLargestFile) {
    error_ = path + ": too large for a slide library";
    return 0;
  }
  std::string bytes(static_cast<std::size_t>(size), '\0');
  std::ifstream in(path, std::ios::binary);
  if (!in || !in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
    error_ = path + ": cannot read";
    return 0;
  }
  if (ReadBytes(bytes, std::filesystem::path(path).stem().string()) == 0) error_ = path + ": " + error_;
  return GetCount();
}

int CSlideLibraryData::FindSlide(std::string_view name) const {
  for (std::size_t i = 0; i < slides_.size(); ++i)
    if (SameName(slides_[i].name, name)) return static_cast<int>(i);
  return -1;
}

const VectorPicture* CSlideLibraryData::GetPicture(int index) const {
  if (index < 0 || index >= GetCount()) return nullptr;
  return &slides_[static_cast<std::size_t>(index)];
}

}  // namespace ui
