// Runs every text of tests/e2e: a session with the real program, in an empty folder, compared whole. How a text is
// written stands in README.md beside this file.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <png.h>

#include "project_places.h"

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kAnyLines = "...";
constexpr double kNear = 2e-5;  // what 4-byte sums leave of a closed form
constexpr std::pair<std::string_view, unsigned char> kGrounds[] = {{"white", 255}, {"black", 0}};  // of pictures

constexpr std::string_view kBareSteps[] = {"copy", "stdin", "run", "console", "exit", "absent", "picture"};
constexpr std::string_view kNamedSteps[] = {"file", "holds", "near"};  // "word NAME:" instead of "word: rest"
constexpr std::string_view kWithLines[] = {"file", "stdin", "console", "holds", "near"};

struct Step {
  std::string word;
  int line = 0;      // of the text
  std::string rest;  // words behind the step's own
  std::vector<std::string> lines;
};

bool Among(std::span<const std::string_view> words, std::string_view word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

struct Text {
  std::vector<Step> steps;
  std::string fault;
};

std::string Trimmed(std::string_view text) {
  const size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return "";
  return std::string(text.substr(begin, text.find_last_not_of(" \t") - begin + 1));
}

// The text behind "|" and one blank.
std::string BodyLine(std::string_view bar) {
  bar.remove_prefix(1);
  if (bar.starts_with(' ')) bar.remove_prefix(1);
  return std::string(bar);
}

bool ParseStep(const std::string& line, Step& step) {
  step.word = line.substr(0, line.find_first_of(": \t"));
  const bool named = Among(kNamedSteps, step.word);
  const size_t colon = named ? line.rfind(':') : line.find(':'), begin = step.word.size();
  if ((!named && !Among(kBareSteps, step.word)) || colon == std::string::npos) return false;
  step.rest = Trimmed(named ? line.substr(begin, colon - begin) : line.substr(colon + 1));
  return !named || !step.rest.empty();
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  if (!text.empty() && text.back() != '\n') lines.back() += "<no end of line>";
  return lines;
}

// "@ NAME FROM TO": lines of a file that a step above writes, or else of the project. False: it hasn't all of them.
bool AddLinesOf(const Text& text, const std::string& words, std::vector<std::string>& to) {
  std::istringstream in(words);
  std::string name;
  size_t first = 0, last = 0;
  in >> name >> first >> last;
  std::vector<std::string> from;
  for (const Step& step : text.steps) {
    if (step.word == "file" && step.rest == name) from = step.lines;
  }
  if (from.empty()) from = Lines(FileBytes(ProjectFile(name)));
  if (first < 1 || last < first || last > from.size()) return false;
  for (size_t i = first; i <= last; ++i) to.push_back(from[i - 1]);
  return true;
}

Text ReadText(const fs::path& path) {
  Text text;
  std::ifstream in(path);
  if (!in) text.fault = "can't be opened";
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    ++number;
    const std::string trimmed = Trimmed(line);
    if (trimmed.empty() || trimmed[0] == '#') continue;
    if (trimmed[0] == '|' || trimmed[0] == '@') {
      if (text.steps.empty() || !Among(kWithLines, text.steps.back().word)) {
        text.fault = "line " + std::to_string(number) + ": belongs to no step";
        return text;
      }
      std::vector<std::string>& lines = text.steps.back().lines;
      if (trimmed[0] == '|') {  // blanks at the end of a line count; those ahead of the bar do not
        lines.push_back(BodyLine(std::string_view(line).substr(line.find('|'))));
      } else if (!AddLinesOf(text, trimmed.substr(1), lines)) {
        text.fault = "line " + std::to_string(number) + ": no such lines: " + trimmed;
        return text;
      }
      continue;
    }
    Step step;
    step.line = number;
    if (!ParseStep(trimmed, step)) {
      text.fault = "line " + std::to_string(number) + ": no step: " + trimmed;
      return text;
    }
    text.steps.push_back(step);
  }
  return text;
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

// Blanks, tabs and commas separate words.
std::vector<std::string> Words(std::string line) {
  std::replace(line.begin(), line.end(), ',', ' ');
  std::vector<std::string> words;
  std::istringstream in(line);
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

bool IsNumber(const std::string& word, double& value) {
  char* end = nullptr;
  value = std::strtod(word.c_str(), &end);
  return !word.empty() && *end == '\0';
}

// The unit of the last digit that is written: 0.01 of 2.50, 1 of 40.
double LastDigit(const std::string& number) {
  const std::size_t exponent = number.find_first_of("eE"), end = std::min(exponent, number.size());
  const std::size_t point = std::min(number.find('.'), end);
  const double digits = point == end ? 0.0 : static_cast<double>(end - point - 1);
  return std::pow(10.0, (exponent == std::string::npos ? 0 : std::atoi(number.c_str() + exponent + 1)) - digits);
}

// Numbers within kNear of the expected one; below 1 half a unit of its last digit more, but no more than kNear in all;
// 0 within kNear. All other words equal, blanks between do not matter.
bool NearLine(const std::string& expected, const std::string& got) {
  const std::vector<std::string> e = Words(expected), g = Words(got);
  return std::equal(e.begin(), e.end(), g.begin(), g.end(), [](const std::string& a, const std::string& b) {
    double x = 0, y = 0;
    if (!IsNumber(a, x) || !IsNumber(b, y)) return a == b;
    const double size = std::fabs(x);
    double apart = kNear * std::max(1.0, size);
    if (size > 0 && size < 1) apart = std::min(kNear, kNear * size + LastDigit(a) / 2);
    return std::fabs(x - y) <= apart;
  });
}

using LineTest = std::function<bool(const std::string& expected, const std::string& got)>;

// "..." stands for any number of lines. Positions of the last "..." are tried again, one line further each time.
bool Matches(const std::vector<std::string>& expected, const std::vector<std::string>& got, const LineTest& same) {
  size_t e = 0, g = 0, gap = std::string::npos, gap_got = 0;
  while (g < got.size()) {
    if (e < expected.size() && expected[e] == kAnyLines) {
      gap = e++;
      gap_got = g;
    } else if (e < expected.size() && same(expected[e], got[g])) {
      ++e;
      ++g;
    } else if (gap != std::string::npos) {
      e = gap + 1;
      g = ++gap_got;
    } else {
      return false;
    }
  }
  while (e < expected.size() && expected[e] == kAnyLines) ++e;
  return e == expected.size();
}

bool ReadPng(const std::string& name, int& width, int& height, std::vector<unsigned char>& rgb) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_file(&image, name.c_str()) == 0) return false;
  image.format = PNG_FORMAT_RGB;
  rgb.resize(PNG_IMAGE_SIZE(image));
  width = static_cast<int>(image.width);
  height = static_cast<int>(image.height);
  return png_image_finish_read(&image, nullptr, rgb.data(), 0, nullptr) != 0;
}

struct Outcome {
  std::string console;
  int status = -1;
};

// The shell takes the words apart. Console and input stand outside the session's folder.
Outcome RunProgram(const std::string& folder, const std::string& arguments, const std::string& input) {
  const TemporaryFolder io;
  const std::string& files = io.path;
  std::ofstream(io.Name("stdin"), std::ios::binary) << input;
  // Never on the display of whoever runs the tests; pictures by the same driver everywhere.
  const std::string command =
      "cd " + folder + " && env -u DISPLAY LIBGL_ALWAYS_SOFTWARE=1 GALLIUM_DRIVER=llvmpipe timeout 60 " +
      TestedProgram() + arguments + " <" + files + "/stdin >" + files + "/stdout 2>" + files + "/stderr";
  Outcome outcome;
  outcome.status = WEXITSTATUS(std::system(command.c_str()));
  outcome.console = FileBytes(io.Name("stdout"));
  const std::string err = FileBytes(io.Name("stderr"));
  if (!err.empty()) outcome.console += "<stderr>\n" + err;
  return outcome;
}

// One text: its folder, and what the last run left.
class Session {
 public:
  explicit Session(fs::path text) : text_(std::move(text)) {}

  void Run() {
    const Text text = ReadText(text_);
    ASSERT_EQ(text.fault, "") << text_;
    for (const Step& step : text.steps) {
      Do(step);
      if (testing::Test::HasFatalFailure()) return;
    }
    CheckRunIsOver();
    EXPECT_GT(runs_, 0) << text_ << " runs nothing";
    EXPECT_EQ(input_, "") << text_ << ": no run reads it";
  }

 private:
  std::string At(const Step& step) const { return text_.filename().string() + ", line " + std::to_string(step.line); }

  void Do(const Step& step) {
    if (step.word == "copy") Copy(step);
    else if (step.word == "file") Write(step);
    else if (step.word == "stdin") input_ = Joined(step.lines);
    else if (step.word == "run") Start(step);
    else if (step.word == "console") Compare(step, "console", outcome_.console, std::equal_to<std::string>{});
    else if (step.word == "picture") LookAt(step);
    else if (step.word == "holds") Holds(step, std::equal_to<std::string>{});
    else if (step.word == "near") Holds(step, NearLine);
    else if (step.word == "absent")
      EXPECT_FALSE(fs::exists(folder_.Name(step.rest))) << At(step) << ": " << step.rest << " is there";
    else {
      status_checked_ = true;
      EXPECT_EQ(std::to_string(outcome_.status), step.rest) << At(step) << ", console:\n" << outcome_.console;
    }
  }

  // copy: samples/x.out [as name]
  void Copy(const Step& step) {
    const std::vector<std::string> words = Words(step.rest);
    ASSERT_TRUE(words.size() == 1 || (words.size() == 3 && words[1] == "as")) << At(step);
    const fs::path from = ProjectFile(words[0]);
    std::error_code error;
    fs::copy_file(from, fs::path(folder_.path) / (words.size() == 3 ? fs::path(words[2]) : from.filename()), error);
    ASSERT_FALSE(error) << At(step) << ": " << error.message();
  }

  void Write(const Step& step) {
    std::ofstream out(folder_.Name(step.rest), std::ios::binary);
    out << Joined(step.lines);
    ASSERT_TRUE(out.flush()) << At(step);
  }

  void Start(const Step& step) {
    CheckRunIsOver();
    ASSERT_TRUE(step.rest.starts_with("zaview")) << At(step);
    outcome_ = RunProgram(folder_.path, step.rest.substr(6), input_);
    ASSERT_LT(outcome_.status, 124) << At(step) << " (124: too long, above: a signal), console:\n" << outcome_.console;
    input_.clear();
    status_checked_ = false;
    ++runs_;
  }

  // A run without an "exit:" must end with status 0.
  void CheckRunIsOver() {
    if (runs_ == 0 || status_checked_) return;
    EXPECT_EQ(outcome_.status, 0) << text_.filename() << ", console:\n" << outcome_.console;
  }

  // picture: NAME.png 500x400 on white lit 2 10: its size and ground, and how many of a hundred pixels aren't ground.
  void LookAt(const Step& step) {
    const std::vector<std::string> words = Words(step.rest);
    ASSERT_TRUE(words.size() == 7 && words[2] == "on" && words[4] == "lit") << At(step);
    const auto ground =
        std::find_if(std::begin(kGrounds), std::end(kGrounds), [&](const auto& one) { return one.first == words[3]; });
    ASSERT_NE(ground, std::end(kGrounds)) << At(step);
    int width = 0, height = 0;
    std::vector<unsigned char> rgb;
    ASSERT_TRUE(ReadPng(folder_.Name(words[0]), width, height, rgb))
        << At(step) << ": no picture " << words[0] << ", console:\n"
        << outcome_.console;
    EXPECT_EQ(std::to_string(width) + "x" + std::to_string(height), words[1]) << At(step);
    size_t lit = 0;
    for (size_t i = 0; i < rgb.size(); i += 3) lit += std::count(&rgb[i], &rgb[i] + 3, ground->second) == 3 ? 0 : 1;
    const double percent = 300.0 * static_cast<double>(lit) / static_cast<double>(rgb.size());
    EXPECT_GE(percent, std::stod(words[5])) << At(step);
    EXPECT_LE(percent, std::stod(words[6])) << At(step);
  }

  void Holds(const Step& step, const LineTest& same) {
    const std::string path = folder_.Name(step.rest);
    ASSERT_TRUE(fs::exists(path)) << At(step) << ": no file " << step.rest << ", console:\n" << outcome_.console;
    Compare(step, step.rest, FileBytes(path), same);
  }

  void Compare(const Step& step, const std::string& what, const std::string& got, const LineTest& same) {
    EXPECT_TRUE(Matches(step.lines, Lines(got), same)) << At(step) << ": " << what << " differs\n---- expected\n"
                                                       << Joined(step.lines) << "---- got\n"
                                                       << got << "----";
  }

  fs::path text_;
  TemporaryFolder folder_;
  std::string input_;
  Outcome outcome_;
  bool status_checked_ = false;
  int runs_ = 0;
};

class SessionTest : public testing::Test {
 public:
  explicit SessionTest(fs::path text) : text_(std::move(text)) {}
  void TestBody() override { Session(text_).Run(); }

 private:
  fs::path text_;
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  std::vector<fs::path> texts;
  for (const auto& entry : fs::directory_iterator(ProjectFile("tests/e2e"))) {
    if (entry.path().extension() == ".txt") texts.push_back(entry.path());
  }
  std::sort(texts.begin(), texts.end());
  for (const fs::path& text : texts) {
    testing::RegisterTest("e2e", text.stem().string().c_str(), nullptr, nullptr, __FILE__, __LINE__,
                          [text]() -> testing::Test* { return new SessionTest(text); });
  }
  return RUN_ALL_TESTS();
}
