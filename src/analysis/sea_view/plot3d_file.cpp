#include "analysis/sea_view/plot3d_file.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string>

namespace zaview {
namespace {

constexpr std::size_t kPiece = 1U << 16;  // reals turned into bytes at once

void AppendWord(std::string& bytes, std::uint32_t word) {
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>((word >> shift) & 0xFFU);
}

void WriteIntegers(std::span<const int> values, OutputFile& out) {
  std::string bytes;
  const auto mark = static_cast<std::uint32_t>(4 * values.size());
  AppendWord(bytes, mark);
  for (const int value : values) AppendWord(bytes, static_cast<std::uint32_t>(value));
  AppendWord(bytes, mark);
  WriteOutput(out, bytes);
}

void WriteReals(std::span<const float> values, OutputFile& out) {
  std::string bytes;
  for (std::size_t first = 0; first < values.size(); first += kPiece) {
    bytes.clear();
    for (const float value : values.subspan(first, std::min(kPiece, values.size() - first)))
      AppendWord(bytes, std::bit_cast<std::uint32_t>(value));
    WriteOutput(out, bytes);
  }
}

// The values of all columns are one record.
void WriteColumns(const Plot3dBlock& block, OutputFile& out) {
  std::size_t count = 0;
  for (const std::vector<float>& column : block.values) count += column.size();
  std::string mark;
  AppendWord(mark, static_cast<std::uint32_t>(4 * count));
  WriteOutput(out, mark);
  for (const std::vector<float>& column : block.values) WriteReals(column, out);
  WriteOutput(out, mark);
}

constexpr int kBlocks[] = {1};

}  // namespace

void WritePlot3dGrid(const Plot3dBlock& block, OutputFile& out) {
  WriteIntegers(kBlocks, out);
  WriteIntegers(block.n, out);
  WriteColumns(block, out);
}

void WritePlot3dFunctions(const Plot3dBlock& block, OutputFile& out) {
  WriteIntegers(kBlocks, out);
  const int counts[] = {block.n[0], block.n[1], block.n[2], static_cast<int>(block.values.size())};
  WriteIntegers(counts, out);
  WriteColumns(block, out);
}

}  // namespace zaview
