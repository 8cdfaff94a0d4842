// The file selector over directories in memory.
#include "menu/file_selector.h"

#include "unit/menu/menu_window.h"

namespace zaview {
namespace {

constexpr int kReturn = 13, kEscape = 27, kDelete = 127, kAll = 1;
constexpr int kDir = 1, kDirectories = 2, kFiles = 3, kFile = 4, kFilter = 5, kStatus = 6, kButtons = 7;

TEST(FileSelector, FilterTakesStars) {
  const struct {
    std::string_view filter, name;
    bool passes;
  } kNames[] = {
      {"", ".hidden", true},
      {"  ", "a", true},
      {"*.out", "run.out", true},
      {"*.out", "run.out1", false},
      {"run*", "run.out", true},
      {"run*", "arun", false},
      {"a*b*c", "a1b2c", true},
      {"a*b*c", "a1c2b", false},
      {"a*b*c", "abc", true},
      {"ab*ba", "aba", false},
      {"*b*b*", "abxb", true},
      {"*b*b*", "ab", false},
      {"run.out", "run.out", true},
      {"run.out", "run.out2", false},
      {"*", "x", true},
      {"[a]*", "a", false},
      {"*.OUT", "run.out", false},
  };
  for (const auto& c : kNames) EXPECT_EQ(dgFileSelectorFilter(c.filter, c.name), c.passes) << c.filter << " " << c.name;
}

TEST(FileSelector, PathsAreResolved) {
  const struct {
    std::string_view base, path, out;
  } kPaths[] = {
      {"/a/b", "c", "/a/b/c"},
      {"/a/b", "../c/", "/a/c"},
      {"/a/b", "/x//y/.", "/x/y"},
      {"/a", "..", "/"},
      {"/a", "../..", "(none)"},
      {"/a", "b\\c/../d", "/a/b/d"},
      {"/", "a b/\xC3\xBC", "/a b/\xC3\xBC"},
      {"/", "..", "(none)"},
      {"/a", "/../b", "(none)"},
      {"/a", "", "/a"},
  };
  for (const auto& c : kPaths) {
    std::string out;
    EXPECT_EQ(ResolvePath(c.base, c.path, out) ? out : "(none)", c.out) << c.path;
  }
}

// A menu with a button for a file, "out.txt" of the working directory.
struct Selector : MenuWindow {
  int im = 0;

  Selector(std::string_view name, int mode) {
    fake.working_directory = "/home/run";
    for (const std::string file : {"run.out", "b.out", "with blank", "t.txt", ".hidden", "sub/deep.out"})
      fake.Put("/home/run/" + file, "x");
    fake.links["/home/run/link"] = "/home/run/sub";
    fake.directories.insert("/home/run/closed");
    fake.refused.insert("/home/run/closed");
    im = gksMenuInit(kit, "menu");
    gksMenuButtonRow(kit, 0, 2);
    gksMenuAddItem(kit, Kind::file, name, 20);
    gksMenuSetAttribute(kit, Attribute::style, mode);
    gksMenuAddItem(kit, Kind::button, "Other");
    gksMenuStart(kit);
    EXPECT_EQ(Do(ClickOn(im, 1, 1)), "");
  }
  int Menu() const { return kit.files.menu; }
  std::string Names(int element) {
    std::string names;
    for (const MenuListItem& item : SlotOf(kit, Menu()).elements[static_cast<std::size_t>(element) - 1].list.items)
      names += item.text + "|";
    return names;
  }
  std::string Field(int row) { return gksMenuItemAt(kit, {Menu(), row, 2})->text; }
  std::string Status() { return gksMenuItemAt(kit, {Menu(), kStatus, 1})->text; }
  std::string Push(int button) { return Do(ClickOn(Menu(), kButtons, button)); }
  std::string ClickLine(int element, int line) {
    const MenuPlaced list = Layout(Menu()).elements[static_cast<std::size_t>(element) - 1];
    const int y = list.inner.y + list.inner.height * (line - list.top) / list.lines - 5;
    return Do(Press(Menu(), list.inner.x + 4, y));
  }
  std::string Enter(int row, std::string_view text) {
    std::vector<int> keys = {kAll};
    keys.insert(keys.end(), text.begin(), text.end());
    if (text.empty()) keys.push_back(kDelete);
    keys.push_back(kReturn);
    std::string told = Do(ClickOn(Menu(), row, 2));
    return told += Do(Keys(Menu(), keys));
  }
};

TEST(FileSelector, ListsAndChooses) {
  Selector s("", 0);
  EXPECT_EQ(s.Field(kDir), "/home/run");
  EXPECT_EQ(s.Names(kDirectories), "../|closed/|link/|sub/|");
  EXPECT_EQ(s.Names(kFiles), ".hidden|b.out|run.out|t.txt|with blank|");
  EXPECT_EQ(s.Enter(kFilter, "*.out"), "");
  EXPECT_EQ(s.Names(kFiles), "b.out|run.out|");
  EXPECT_EQ(s.Names(kDirectories), "../|closed/|link/|sub/|");
  EXPECT_EQ(s.ClickLine(kFiles, 2), "");
  EXPECT_EQ(s.Field(kFile), "run.out");
  // The menu that waits.
  EXPECT_EQ(s.Do(s.ClickOn(s.im, 1, 2)), "Input disabled due to pending sub-menu\n");
  dgFileSelector(s.kit, {s.im, 1, 1}, 0, "");
  EXPECT_TRUE(s.fake.output.ends_with("WARNING - Only one file selector can be open at a time\n"));
  EXPECT_EQ(s.Push(1), "1.1.1 file 0 0 '/home/run/run.out'; ");
  EXPECT_EQ(gksMenuItemAt(s.kit, {s.im, 1, 1})->text, "/home/run/run.out");
  EXPECT_EQ(s.gks.side_windows.size(), 1U);
  EXPECT_EQ(s.Do(s.ClickOn(s.im, 1, 2)), "1.1.2 button 0 0 ''; ");
}

TEST(FileSelector, GoesFromDirectoryToDirectory) {
  Selector s("/home/run/sub/deep.out", kFileRead);
  EXPECT_EQ(s.Field(kDir) + " " + s.Field(kFile), "/home/run/sub deep.out");
  const struct {
    int line;  // of the directories, or a text
    std::string_view typed, directory, said;
  } kSteps[] = {
      {1, "", "/home/run", ""},
      {4, "", "/home/run/sub", ""},
      {0, "..", "/home/run", ""},
      {0, "link/", "/home/run/link", ""},
      {0, "/home/", "/home", ""},
      {1, "", "/", ""},
      {0, "..", "/", "LOGIC ERROR - no more slashes in relative path\n"},
      {0, "home\\run", "/home/run", ""},
      {2, "", "/home/run/closed", "Directory appears to be invalid or non-existent\n"},
  };
  for (const auto& c : kSteps) {
    EXPECT_EQ(c.line > 0 ? s.ClickLine(kDirectories, c.line) : s.Enter(kDir, c.typed), c.said);
    EXPECT_EQ(s.Field(kDir), c.directory);
    s.fake.seconds += 1;
  }
  EXPECT_EQ(s.Status(), "Directory is invalid or non-existent");
  EXPECT_EQ(s.Push(1), "File selector aborted - bad directory...\n");
  EXPECT_EQ(s.Menu(), 0);
}

TEST(FileSelector, AsksAheadOfOverwriting) {
  Selector s("b.out", kFileWrite);
  EXPECT_EQ(s.Push(1), "");
  EXPECT_EQ(s.Status(), "File exists - hit Confirm to overwrite or Cancel to re-specify");
  EXPECT_EQ(s.ClickLine(kFiles, 1), "Overwrite/Selection confirmation pending - input ignored\n");
  EXPECT_EQ(s.Push(2), "");  // back to the name, where the caret is
  EXPECT_EQ(s.Status(), "");
  EXPECT_EQ(s.Do(s.Keys(s.Menu(), {kAll, 't', '.', 't', 'x', 't', kReturn})), "");
  EXPECT_EQ(s.Push(1), "1.1.1 file 0 0 '/home/run/t.txt'; ");
}

TEST(FileSelector, EndsByItsKindOfFile) {
  const struct {
    int mode;
    std::string_view name, told, status;
  } kNames[] = {
      {kFileWrite, "new.txt", "1.1.1 file 0 0 '/home/run/new.txt'; ", ""},
      {kFileWrite, "sub/deep.out", "", "File exists - hit Confirm to overwrite or Cancel to re-specify"},
      {kFileWrite, "sub", "", "Directory is invalid or non-existent"},
      {kFileWrite, "nowhere/x", "", "Directory is invalid or non-existent"},
      {kFileRead, "with blank", "1.1.1 file 0 0 '/home/run/with blank'; ", ""},
      {kFileRead, "new.txt", "", "File does not exist - hit Confirm to select or Cancel to re-specify"},
      {3, "nowhere/x", "1.1.1 file 0 0 '/home/run/nowhere/x'; ", ""},
      {0, "", "File selector aborted - blank file name...\n", ""},
  };
  for (const auto& c : kNames) {
    Selector s("", c.mode);
    EXPECT_EQ(s.Enter(kFile, c.name), c.told) << c.name;
    if (!c.status.empty()) EXPECT_EQ(s.Status(), c.status) << c.name;
    else EXPECT_EQ(s.Menu(), 0) << c.name;
  }
  Selector s("", 0);
  dgFileSelector(s.kit, {s.im, 1, 1}, 0, "");
  EXPECT_EQ(s.Do(s.Keys(s.Menu(), {kEscape})), "");  // Cancel
  EXPECT_EQ(s.Menu(), 0);
  s.fake.output.clear();
  dgFileSelector(s.kit, {s.im, 1, 1}, 4, "");
  EXPECT_EQ(s.fake.output, "ERROR - Invalid mode specifier in dgFileSelector: 4\n");
}

TEST(FileSelector, TakesADoubleClickOrKeysAlone) {
  Selector s("", kFileRead);
  EXPECT_EQ(s.ClickLine(kFiles, 2), "");
  EXPECT_EQ(s.ClickLine(kFiles, 2), "1.1.1 file 0 0 '/home/run/b.out'; ");
  // From the caret in the name: give that up with the filter's field, go to the lists with Tab.
  Selector t("", kFileRead);
  t.ClickLine(kFiles, 2);
  EXPECT_EQ(t.Do(t.Keys(t.Menu(), {kKeyDown, kKeyDown, kKeyUp})), "");
  EXPECT_EQ(t.Field(kFile), "run.out");
  EXPECT_EQ(t.Do(t.Keys(t.Menu(), {kReturn})), "1.1.1 file 0 0 '/home/run/run.out'; ");
}

TEST(FileSelector, ClosesWithItsMenu) {
  Selector s("", 0);
  gksMenuClose(s.kit, s.im);
  EXPECT_TRUE(s.gks.side_windows.empty());
  EXPECT_EQ(s.Menu() + s.kit.sub_menu, 0);
  // Closed by the user: the menu hears again.
  Selector t("", 0);
  t.Do({{FedEvent::Kind::close, SlotOf(t.kit, t.Menu()).id}});
  EXPECT_EQ(t.Do(t.ClickOn(t.im, 1, 2)), "1.1.2 button 0 0 ''; ");
}

// Its menu is built anew behind it: the file is that of the button where it stands now, and of nothing else.
TEST(FileSelector, FollowsItsButton) {
  for (const bool has_button : {true, false}) {
    Selector s("", 0);
    const int other = BuildAll(s.kit, "another menu");  // waits as well
    EXPECT_EQ(s.Do(s.Keys(other, {9})), "Input disabled due to pending sub-menu\n");
    EXPECT_EQ(gksMenuInit(s.kit, "menu"), s.im);
    gksMenuButtonRow(s.kit, 0, 1);
    gksMenuAddItemI(s.kit, Kind::check, 0);
    gksMenuButtonRow(s.kit, 0, 1);
    if (has_button) gksMenuAddItem(s.kit, Kind::file, "", 20);
    gksMenuStart(s.kit);
    ASSERT_EQ(s.Menu() != 0, has_button);
    if (!has_button) continue;
    s.ClickLine(kFiles, 2);
    EXPECT_EQ(s.Push(1), "1.2.1 file 0 0 '/home/run/b.out'; ");
  }
}

// A small screen shortens both lists alike.
TEST(FileSelector, FitsOnTheScreen) {
  Selector s("", 0);
  s.kit.font_step = 3;
  s.platform.window.screen = [](void*) { return WindowPlace{0, 0, 800, 600}; };
  gksMenuRefresh(s.kit, 0);
  s.Do({});
  const MenuLayout layout = s.Layout(s.Menu());
  EXPECT_LE(SlotOf(s.kit, s.Menu()).height, 600);
  EXPECT_NEAR(layout.elements[1].lines, layout.elements[2].lines, 1);
  EXPECT_GE(layout.elements[2].lines, 4);
}

}  // namespace
}  // namespace zaview
