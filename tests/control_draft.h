// The shortest control text that can be read, record by record, for tests to bend; and its lines as a source.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/line_source.h"
#include "fake_platform.h"

namespace zaview {

struct ControlDraft {
  // clang-format off
  std::map<int, std::vector<std::string>> record = {
      {1, {"Draft"}}, {2, {""}}, {3, {""}}, {4, {"hull.geo"}}, {5, {"run.out"}}, {6, {"4*0"}}, {7, {""}}, {8, {""}},
      {9, {""}}, {10, {""}}, {11, {"20*0"}}, {12, {"1"}}, {13, {"1 2 0", "6*0", "3*0.0", ""}},
      {14, {"0.0 100 0.25 0", "", "", ""}}, {15, {"4*0.0"}}, {16, {"6*0.0"}}, {17, {"6*0.0"}}, {18, {"6*0.0"}},
      {19, {"6*0.0"}}, {20, {"6*1"}}, {21, {"0"}}, {22, {"9.81 1025.0 100.0 57.29578"}},
      {23, {"9.81 1025.0 100.0 57.29578"}}, {24, {"9*0.0"}}, {25, {"1.0 9*0.0"}}, {26, {"3*0.0"}}, {27, {"1 1"}},
      {28, {"0"}}, {29, {"0 0 0 0 0"}}, {30, {"1.19E-6 0"}}, {31, {"0"}}, {32, {"0"}}, {33, {"0"}}};
  // clang-format on
  std::vector<std::string> modules;  // lines behind record 33

  [[nodiscard]] std::string Text() const {
    std::string text;
    for (const auto& row : record)
      for (const std::string& line : row.second) text += line + '\n';
    for (const std::string& line : modules) text += line + '\n';
    return text;
  }
};

// A text as the file "run.out", open at its first line.
struct TextFile {
  explicit TextFile(std::string text) {
    fake.Put("run.out", std::move(text));
    platform = fake.Get();
    StartStream(stream, platform.files, platform.files.open_read(platform.files.self, "run.out"));
    source.stream = &stream;
  }
  TextFile(const TextFile&) = delete;
  TextFile& operator=(const TextFile&) = delete;

  FakePlatform fake;
  Platform platform;
  BlockStream stream;
  LineSource source;
};

}  // namespace zaview
