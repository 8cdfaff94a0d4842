#include "gks/picture/svg_picture.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <numbers>
#include <span>
#include <string_view>

#include <fmt/format.h>

#include "gks/kernel/fonts.h"
#include "gks/picture/recorded_cells.h"

namespace zaview {

namespace {

constexpr fmt::string_view kHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"{0}\" "
    "height=\"{1}\" viewBox=\"0 0 {0} {1}\" font-family=\"Helvetica, Arial, 'Liberation Sans', sans-serif\" "
    "fill=\"none\" stroke-linejoin=\"round\" xml:space=\"preserve\">\n";
constexpr fmt::string_view kCell = "<svg x=\"{0}\" y=\"{1}\" width=\"{2}\" height=\"{3}\" viewBox=\"0 0 {2} {3}\">\n";
constexpr fmt::string_view kPaper = "<rect width=\"{}\" height=\"{}\" fill=\"{}\"/>\n";
constexpr std::string_view kEnd = "</svg>\n";

// ---- Numbers: hundredths of a pixel, in as few characters as they need

constexpr float kLimit = 1.0e6F;  // pixels; further out nothing is seen

long Hundredths(float value) {
  return std::lround(std::clamp(value, -kLimit, kLimit) * 100.0F);
}

void PutNumber(std::string& out, long hundredths) {
  if (hundredths < 0) out += '-';
  const long size = std::abs(hundredths), part = size % 100;
  if (size >= 100 || part == 0) fmt::format_to(std::back_inserter(out), "{}", size / 100);
  if (part == 0) return;
  out += '.';
  out += static_cast<char>('0' + part / 10);
  if (part % 10 != 0) out += static_cast<char>('0' + part % 10);
}

void PutNext(std::string& out, long hundredths) {  // a sign sets off as well as a blank
  if (hundredths >= 0) out += ' ';
  PutNumber(out, hundredths);
}

std::string NumberOf(float value) {
  std::string out;
  PutNumber(out, Hundredths(value));
  return out;
}

std::string InkOf(GksColour colour) {
  const auto byte = [](float part) { return std::lround(std::clamp(part, 0.0F, 1.0F) * 255); };
  return fmt::format("#{:02x}{:02x}{:02x}", byte(colour.red), byte(colour.green), byte(colour.blue));
}

// ---- Lines and areas

// Relative, so that each step is short; what rounding takes from one is given to the next.
void PutPath(std::string& out, std::span<const GksPoint> points) {
  long x = 0, y = 0;
  bool open = false;
  for (const GksPoint& point : points) {
    const bool finite = std::isfinite(point.x) && std::isfinite(point.y);
    if (finite) {
      const long to_x = Hundredths(point.x), to_y = Hundredths(point.y);
      out += open ? 'l' : 'M';
      PutNumber(out, open ? to_x - x : to_x);
      PutNext(out, open ? to_y - y : to_y);
      x = to_x;
      y = to_y;
    }
    open = finite;
  }
}

void PutDashes(std::string& out, const RecordedItem& pen) {
  const Dashes dashes = DashesOf(pen.pattern, pen.width);
  out += " stroke-dasharray=\"";
  for (std::size_t i = 0; i < dashes.count; ++i)
    fmt::format_to(std::back_inserter(out), "{}{}", i == 0 ? "" : ",", NumberOf(dashes.runs[i]));
  out += '"';
  if (dashes.offset > 0) fmt::format_to(std::back_inserter(out), " stroke-dashoffset=\"{}\"", NumberOf(dashes.offset));
}

bool HasSamePen(const RecordedItem& a, const RecordedItem& b) {
  return b.kind == RecordedKind::line && a.colour.red == b.colour.red && a.colour.green == b.colour.green &&
         a.colour.blue == b.colour.blue && a.width == b.width && a.pattern == b.pattern;
}

// With those that follow in the same pen. How many they are.
std::size_t PutLines(std::string& out, const PictureRecording& from, std::size_t first) {
  const RecordedItem& pen = from.items[first];
  std::size_t end = first;
  while (end < from.items.size() && HasSamePen(pen, from.items[end])) ++end;
  if (pen.pattern == 0) return end - first;
  fmt::format_to(std::back_inserter(out), "<path stroke=\"{}\"", InkOf(pen.colour));
  if (pen.width != 1.0F) fmt::format_to(std::back_inserter(out), " stroke-width=\"{}\"", NumberOf(pen.width));
  if (pen.pattern != kSolid) PutDashes(out, pen);
  out += " d=\"";
  for (std::size_t i = first; i < end; ++i) PutPath(out, PointsOf(from, from.items[i]));
  out += "\"/>\n";
  return end - first;
}

void PutFill(std::string& out, const PictureRecording& from, const RecordedItem& item) {
  fmt::format_to(std::back_inserter(out), "<path fill=\"{}\" d=\"", InkOf(item.colour));
  PutPath(out, PointsOf(from, item));
  out += "Z\"/>\n";
}

// ---- Letters

void PutEscaped(std::string& out, std::string_view text) {
  while (!text.empty()) {
    const char32_t c = gksTakeLetter(text);
    if (c < 32 || (c >= 127 && c < 160) || c == 0xFFFE || c == 0xFFFF) continue;  // controls, and what XML can't have
    if (c == '<') out += "&lt;";
    else if (c == '>') out += "&gt;";
    else if (c == '&') out += "&amp;";
    else gksPutLetter(c, out);
  }
}

void PutLetters(std::string& out, const PictureRecording& from, const RecordedItem& item) {
  const std::string_view text = TextOf(from, item);
  const float length = item.size * gksLettersWidth(text);
  const GksPoint at = from.points[item.first];
  if (!(length > 0.0F) || !std::isfinite(at.x) || !std::isfinite(at.y)) return;
  const std::string x = NumberOf(at.x), y = NumberOf(at.y);
  fmt::format_to(std::back_inserter(out), "<text x=\"{}\" y=\"{}\" font-size=\"{}\" fill=\"{}\" textLength=\"{}\"", x,
                 y, NumberOf(item.size), InkOf(item.colour), NumberOf(length));
  if (item.turn != 0.0F)
    fmt::format_to(std::back_inserter(out), " transform=\"rotate({} {} {})\"",
                   NumberOf(item.turn * 180.0F / std::numbers::pi_v<float>), x, y);
  out += '>';
  PutEscaped(out, text);
  out += "</text>\n";
}

// ---- Images

void PutBase64(std::string& out, std::string_view bytes) {
  constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t n = std::min<std::size_t>(bytes.size() - i, 3);
    unsigned word = 0;
    for (std::size_t k = 0; k < 3; ++k) word = word << 8U | (k < n ? static_cast<unsigned char>(bytes[i + k]) : 0U);
    for (std::size_t k = 0; k < 4; ++k) out += k <= n ? kDigits[word >> (18 - 6 * k) & 63U] : '=';
  }
}

bool PutImage(std::string& out, const PictureRecording& from, const RecordedItem& item) {
  const PictureImage& image = from.images[item.first];
  std::string png;
  if (!EncodePicture(PictureFormat::png, image.width, image.height, image.rgb, png)) return false;
  fmt::format_to(std::back_inserter(out), "<image width=\"{}\" height=\"{}\" xlink:href=\"data:image/png;base64,",
                 image.width, image.height);
  PutBase64(out, png);
  out += "\"/>\n";
  return true;
}

bool PutPicture(std::string& out, const PictureRecording& from) {
  fmt::format_to(std::back_inserter(out), kPaper, from.width, from.height, InkOf(from.paper));
  for (std::size_t i = 0; i < from.items.size();) {
    const RecordedItem& item = from.items[i];
    std::size_t taken = 1;
    if (item.kind == RecordedKind::line) taken = PutLines(out, from, i);
    else if (item.kind == RecordedKind::fill) PutFill(out, from, item);
    else if (item.kind == RecordedKind::letters) PutLetters(out, from, item);
    else if (!PutImage(out, from, item)) return false;
    i += taken;
  }
  return true;
}

}  // namespace

bool PutSvg(const RecordedPage& page, std::string& bytes) {
  const PagePlace size = SizeOf(page);
  bytes += fmt::format(kHead, size.x, size.y);
  if (page.cells.size() > 1) bytes += fmt::format(kPaper, size.x, size.y, InkOf(page.cells[0]->paper));
  for (std::size_t i = 0; i < page.cells.size(); ++i) {
    const PagePlace at = PlaceOf(page, i);
    bytes += fmt::format(kCell, at.x, at.y, page.cells[i]->width, page.cells[i]->height);
    if (!PutPicture(bytes, *page.cells[i])) return false;
    bytes += kEnd;
  }
  bytes += kEnd;
  return true;
}

}  // namespace zaview
