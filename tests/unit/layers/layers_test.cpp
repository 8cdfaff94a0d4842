// The drawing of the house, checked: every #include "folder/file.h" of src/ must go along an edge of tests/layers.txt.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "project_places.h"

namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;

struct Layers {
  std::map<std::string, Names> below;  // room -> rooms it may include, itself too
  Names records;                       // headers that may include, and be included by, their like of any folder
  Names session_users;                 // rooms that may see frame/session.h
  std::vector<std::string> faults;     // of the file of layers itself
};

constexpr std::string_view kSession = "frame/session";

void ReachDown(Layers& layers) {
  // Repeated until nothing is added: what a room may include it may include through another room as well.
  for (bool grown = true; grown;) {
    grown = false;
    for (auto& [room, below] : layers.below) {
      const Names direct = below;
      for (const std::string& lower : direct) {
        for (const std::string& further : layers.below[lower]) grown |= below.insert(further).second;
      }
    }
  }
}

Layers ReadLayers(std::istream& in) {
  Layers layers;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    const size_t colon = line.find(':');
    if (colon == std::string::npos) {
      layers.faults.push_back("no colon: " + line);
      continue;
    }
    const std::string room = line.substr(0, colon);
    std::istringstream words(line.substr(colon + 1));
    if (room != "records" && room != "session") layers.below[room].insert(room);
    for (std::string word; words >> word;) {
      if (room == "records") {
        layers.records.insert(word);
      } else if (room == "session") {
        layers.session_users.insert(word);
      } else {
        if (!layers.below.contains(word))
          layers.faults.push_back(room + " includes " + word + ", which stands no line above");
        layers.below[room].insert(word);
      }
    }
  }
  ReachDown(layers);
  return layers;
}

// "case/plot_data.cpp" -> "case/plot_data".
std::string Stem(const std::string& path) {
  return path.substr(0, path.rfind('.'));
}

// The deepest folder that is a room; blank: no line of the layers names one.
std::string RoomOf(const Layers& layers, const std::string& path) {
  for (size_t slash = path.rfind('/'); slash != std::string::npos && slash > 0; slash = path.rfind('/', slash - 1)) {
    const std::string folder = path.substr(0, slash);
    if (layers.below.contains(folder)) return folder;
  }
  return "";
}

// Blank: the include is allowed. Else what is wrong with it.
std::string FaultOf(const Layers& layers, const std::string& from, const std::string& to) {
  const std::string from_room = RoomOf(layers, from), to_room = RoomOf(layers, to);
  if (to_room.empty()) return "no room of that name";
  if (from == to || Stem(from) == Stem(to)) return "";
  const bool from_record = from.ends_with(".h") && layers.records.contains(Stem(from));
  if (from_record && layers.records.contains(Stem(to))) return "";
  if (Stem(to) == kSession)
    return layers.session_users.contains(from_room) ? "" : from_room + " must not see the session";
  if (!layers.below.at(from_room).contains(to_room)) return from_room + " must not include " + to_room;
  return "";
}

// The quoted file of an #include line; blank for any other line.
std::string Included(std::string_view line) {
  const size_t hash = line.find_first_not_of(" \t");
  if (hash == std::string_view::npos || line[hash] != '#') return "";
  const size_t word = line.find_first_not_of(" \t", hash + 1);
  if (word == std::string_view::npos || !line.substr(word).starts_with("include")) return "";
  const size_t open = line.find('"', word);
  const size_t close = open == std::string_view::npos ? open : line.find('"', open + 1);
  return close == std::string_view::npos ? "" : std::string(line.substr(open + 1, close - open - 1));
}

std::string CheckFile(const Layers& layers, const fs::path& src, const std::string& name) {
  std::string faults;
  if (RoomOf(layers, name).empty()) return name + ": no line of layers.txt names its folder\n";
  std::ifstream in(src / name);
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    ++number;
    const std::string to = Included(line);
    if (to.empty()) continue;
    std::string fault = FaultOf(layers, name, to);
    if (fault.empty() && !fs::exists(src / to)) fault = "no such file";
    if (!fault.empty()) faults += name + ":" + std::to_string(number) + ": " + line + "  // " + fault + "\n";
  }
  return faults;
}

Layers ProjectLayers() {
  std::ifstream in(ProjectFile("tests/layers.txt"));
  return ReadLayers(in);
}

TEST(Layers, EveryIncludeOfSrcGoesDown) {
  const Layers layers = ProjectLayers();
  EXPECT_TRUE(layers.faults.empty()) << layers.faults.front();
  const fs::path src = ProjectFile("src");
  std::string faults;
  Names stems;
  for (const auto& entry : fs::recursive_directory_iterator(src)) {
    const std::string kind = entry.path().extension().string();
    if (kind != ".h" && kind != ".cpp") continue;
    const std::string name = fs::relative(entry.path(), src).generic_string();
    faults += CheckFile(layers, src, name);
    stems.insert(Stem(name));
  }
  EXPECT_EQ(faults, "");
  EXPECT_FALSE(stems.empty());
  for (const std::string& record : layers.records) EXPECT_TRUE(stems.contains(record)) << record;
}

// A folder without a line would pass as a part of the room around it.
TEST(Layers, EveryFolderOfSrcIsARoomThatIsDescribed) {
  Names rooms, folders, described;
  for (const auto& [room, below] : ProjectLayers().below) rooms.insert(room);
  const fs::path src = ProjectFile("src");
  for (const auto& entry : fs::recursive_directory_iterator(src))
    if (entry.is_regular_file()) folders.insert(fs::relative(entry.path().parent_path(), src).generic_string());
  EXPECT_EQ(folders, rooms);

  std::ifstream page(ProjectFile("docs/ARCHITECTURE.md"));
  std::string line;
  while (std::getline(page, line) && !line.starts_with("| room |")) continue;
  while (std::getline(page, line) && line.starts_with("|")) {
    const std::string cell = line.substr(1, line.find('|', 1) - 1);
    for (size_t end = cell.find("/`"); end != std::string::npos; end = cell.find("/`", end + 1)) {  // `views/state/`
      const size_t begin = cell.rfind('`', end) + 1;
      described.insert(cell.substr(begin, end - begin));
    }
  }
  EXPECT_EQ(described, rooms);
}

// The rooms of the build are these, and link what they may include.
TEST(Layers, TheBuildHasTheSameRooms) {
  std::ifstream in(ProjectFile("CMakeLists.txt"));
  const std::string build{std::istreambuf_iterator<char>(in), {}};
  constexpr std::string_view kRoom = "\nzaview_room(";
  std::map<std::string, std::string> folders;  // of the targets
  std::stringstream drawing;
  for (size_t at = build.find(kRoom); at != std::string::npos; at = build.find(kRoom, at + 1)) {
    std::istringstream words(build.substr(at + kRoom.size(), build.find(')', at) - at - kRoom.size()));
    std::string target, folder, link;
    words >> target >> folder >> link;
    folders[target] = folder;
    drawing << folder << ":";
    while (words >> target) drawing << ' ' << folders[target];
    drawing << '\n';
  }
  const Layers of_build = ReadLayers(drawing);
  EXPECT_EQ(of_build.below, ProjectLayers().below);
  EXPECT_TRUE(of_build.faults.empty()) << of_build.faults.front();
}

// The checker itself: what a wrong reading of the drawing would let through or refuse.
TEST(Layers, RefusesWhatGoesUpOrSideways) {
  const Layers layers = ProjectLayers();
  // clang-format off
  const struct { const char* from; const char* to; bool allowed; } cases[] = {
      {"case/plot_data.cpp", "case/plot_data.h", true},           // its own header
      {"case/plot_data.cpp", "control/control_text.h", true},     // through geometry and waves
      {"control/control_text.cpp", "case/plot_data.h", false},    // upward
      {"stats/peaks.cpp", "case/plot_data.h", false},             // the pure floor never sees the case
      {"stats/tables/stat_table.cpp", "case/plot_data.h", true},         // the upper floor does
      {"stats/peaks.cpp", "stats/tables/stat_table.h", false},           // floor below to floor above
      {"stats/peaks.cpp", "frame/ground/prompts.h", false},              // pure: no console
      {"case/plot_data.cpp", "frame/run_loop.h", false},          // roof
      {"script/selectors.cpp", "views/frame/plot_session.h", false},    // sideways
      {"script/selectors.cpp", "frame/session.h", true}, {"case/plot_data.cpp", "frame/session.h", false},
      {"frame/session.h", "script/script_state.h", true},         // records include their like
      {"gks/plot/plot_layer.cpp", "case/plot_data.h", false},           // pictures know nothing of ships
      {"case/plot_data.cpp", "case/read/time_steps.h", false},    // a room inside a folder is a room of its own
      {"case/plot_data.cpp", "nowhere/plot.h", false}};
  // clang-format on
  for (const auto& c : cases) EXPECT_EQ(FaultOf(layers, c.from, c.to).empty(), c.allowed) << c.from << " " << c.to;
  EXPECT_EQ(Included(" # include \"base/text.h\"  // why"), "base/text.h");
  EXPECT_EQ(Included("#include <vector>") + Included("// #include \"base/text.h\""), "");
}

}  // namespace
