// The menus that others lead to: lists of quantities and colours, the point, help and messages.
#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "case/quantity_catalogue.h"
#include "unit/views/menu_view.h"
#include "views/menus/option_builder.h"

namespace zaview {
namespace {

constexpr PlotRequest kHeave{.quantity = {.iqnt = 1, .curve = 3}};

// An item that a list sets: the axis option stands for a colour, the quantity is refused below 3.
constexpr OptionItem kColour = {.kind = OptionKind::colour,
                                .value = Number<&Session::data_plot, &DataPlotState::axis_option>};
constexpr OptionItem kQuantity = {
    .kind = OptionKind::quantity,
    .value = {[](Session& s, int) { return OptionValue{.integer = s.data_plot.quantity.iqnt}; },
              [](Session& s, const OptionEvent& event) {
                if (event.integer < 3) return kIllegalIgnored;
                s.data_plot.quantity.iqnt = event.integer;
                return std::string_view();
              }}};

struct SelectView : MenuView {
  SelectView() : MenuView({"irregular_head.out"}) {
    EnterPlot(kHeave);
    session.platform.console.trace = true;
  }
  [[nodiscard]] const std::vector<MenuElement>& Elements(int im) { return SlotOf(session.menus.kit, im).elements; }
  // An item of a row, or of a list; drawn behind it.
  void Choose(int im, std::size_t element, std::size_t item) {
    ShowListItem(session.menus.kit, im, static_cast<int>(element), static_cast<int>(item));
    const MenuPlaced placed = LayoutOf(session.menus.kit, im).elements[element - 1];
    MenuBox box = placed.inner;
    if (Elements(im)[element - 1].type == MenuElementType::list) {
      box.height /= placed.lines;
      box.y += box.height * (static_cast<int>(item) - 1 - placed.top);
    } else box = placed.items[item - 1];
    fake.output.clear();
    PressAt(im, box);
    EXPECT_NE(fake.output.find("TopRender"), std::string::npos);
  }
};

TEST(SelectMenu, OffersTheQuantitiesOfTheCase) {
  SelectView v;
  const int& im = v.session.menus.m_select;
  InvokeQntMenu(v.session, {&kQuantity});
  const auto items = [&]() -> const std::vector<MenuListItem>& { return v.Elements(im)[1].list.items; };
  const auto has = [&](int iqnt) {
    return std::any_of(items().begin(), items().end(), [&](const MenuListItem& i) { return i.value == iqnt; });
  };
  EXPECT_TRUE(items()[0].chosen && items()[0].text == cQntLong(1));
  EXPECT_FALSE(has(27) || has(34));  // no point was given; files alone
  v.Choose(im, 2, 4);
  EXPECT_EQ(v.session.data_plot.quantity.iqnt, items()[3].value);
  EXPECT_TRUE(items()[3].chosen && !items()[0].chosen);
  v.Choose(im, 2, 2);
  EXPECT_NE(v.fake.output.find(kIllegalIgnored), std::string::npos);
  EXPECT_TRUE(items()[3].chosen && !items()[1].chosen);
  v.session.output.point.given = true;
  RefreshMenus(v.session);
  EXPECT_TRUE(has(27));
  v.Choose(im, 3, 1);  // "Close"
  EXPECT_EQ(im, 0);
}

TEST(SelectMenu, ShowsColoursByName) {
  SelectView v;
  const int& im = v.session.menus.m_select;
  v.session.data_plot.axis_option = 5;
  InvokeColorMenu(v.session, {&kColour});
  std::vector<const MenuRowItem*> chips(kColours);
  const auto read = [&] {
    for (const MenuElement& element : v.Elements(im))
      for (const MenuRowItem& item : element.items)
        if (item.type == MenuItemType::colour) chips[static_cast<std::size_t>(item.value)] = &item;
  };
  read();
  EXPECT_EQ(std::count(chips.begin() + 1, chips.end(), nullptr), 0);
  EXPECT_TRUE(chips[8]->text == "Seagreen" && chips[1]->text == "White" && chips[5]->style == kChipChosen);
  v.Choose(im, 4, 1);  // the third of the first column, by its name
  EXPECT_EQ(v.session.data_plot.axis_option, 3);
  read();
  EXPECT_EQ(chips[3]->style, kChipChosen);
  InvokeQntMenu(v.session, {&kQuantity});  // takes over the window
  EXPECT_EQ(v.Elements(im)[1].type, MenuElementType::list);
  v.session.run.plot_module = PlotModule::geometry;  // without the item that asked
  RefreshMenus(v.session);
  EXPECT_EQ(im, 0);
}

TEST(PointMenu, SetsPointAndCoefficients) {
  SelectView v;
  DataPlotState& plot = v.session.data_plot;
  MotionGraph& graph = v.session.motion_view.graphs[2];
  graph.request.iqnt = 27;
  const std::array<double, 3> apart = {1, 2, 3};
  v.session.motion_view.graphs[3].request = {.iqnt = 27, .point = apart};
  InvokePointMenu(v.session, MenuMode::open);
  const int im = v.session.menus.m_point;
  const PointSettings& point = v.session.output.point;
  const struct {
    ItemAt at;
    const char* typed;
    double (*value)(const PointSettings&);
    double want;
  } kRows[] = {
      {{.row = "X: ", .nth = 1}, "12.5", [](const PointSettings& p) { return p.point[0]; }, 12.5},
      {{.text = " Y: "}, "-3", [](const PointSettings& p) { return p.point[1]; }, -3},
      {{.text = " Z: "}, "7", [](const PointSettings& p) { return p.point[2]; }, 7},
      {{.row = "A0: ", .nth = 1}, "0.25", [](const PointSettings& p) { return double{p.missile[0]}; }, 0.25},
      {{.text = " A1: "}, "1", [](const PointSettings& p) { return double{p.missile[1]}; }, 1},
      {{.text = " A2: "}, "2", [](const PointSettings& p) { return double{p.missile[2]}; }, 2},
      {{.text = " A3: "}, "3", [](const PointSettings& p) { return double{p.missile[3]}; }, 3},
  };
  for (const auto& row : kRows) {
    v.fake.output.clear();
    v.Type(im, row.at, row.typed);
    EXPECT_DOUBLE_EQ(row.value(point), row.want) << row.typed;
    EXPECT_NE(v.fake.output.find("TopRender"), std::string::npos) << row.typed;
  }
  v.ExpectAllUsed(PointOptions(v.session).blocks);
  EXPECT_TRUE(point.given && point.missile_given);
  EXPECT_EQ(graph.request.point, point.point);  // graphs of the animation too
  EXPECT_EQ(v.session.motion_view.graphs[3].request.point, apart);
  v.Type(im, {.text = " Y: "}, "x");
  EXPECT_EQ(v.Shown(im, {.text = " Y: "})->real, -3.0F);
  // What is shown of the point is made anew, but only if it moved.
  plot.quantity = {.iqnt = 27, .point = point.point};
  plot.plot_component = 1;
  v.session.run.redraw = true;
  v.Key('g');
  const PlotDataKey made = plot.derived.made_of;
  EXPECT_EQ(made.subject.point, point.point);
  v.Type(im, {.text = " Z: "}, "7");
  EXPECT_EQ(plot.derived.made_of, made);
  v.Type(im, {.text = " Z: "}, "8");
  EXPECT_EQ(plot.derived.made_of.subject.point[2], 8);
  const auto& text = v.Elements(im)[2].text;
  EXPECT_EQ(text, "Point must be specified in INPUT coordinates");
  v.session.output.units.LENOUT *= 3;
  RefreshMenus(v.session);
  EXPECT_EQ(v.Elements(im)[2].text, "Point must be specified in INPUT coordinates and units");
}

TEST(MessageWindows, ShowLinesAndClose) {
  SelectView v;
  ASSERT_TRUE(InvokeMessageWindow(v.session, {"First line", "Second line"}));
  const int& message = v.session.menus.m_message;
  EXPECT_EQ(v.Elements(message)[1].text, "Second line");
  EXPECT_EQ(SlotOf(v.session.menus.kit, message).title, "ZAVIEW Message");
  v.Choose(message, 3, 1);
  EXPECT_EQ(message, 0);
  // Help: a list of at most 40 lines that scrolls and has nothing chosen.
  v.Key('h');
  const int help = v.session.menus.m_help;
  EXPECT_EQ(SlotOf(v.session.menus.kit, help).title, "Help");
  EXPECT_EQ(LayoutOf(v.session.menus.kit, help).elements[0].lines, 40);
  v.Choose(help, 1, 5);
  for (const MenuListItem& item : v.Elements(help)[0].list.items) EXPECT_FALSE(item.chosen);
  const int lines = static_cast<int>(v.Elements(help)[0].list.items.size());
  v.Do({{FedEvent::Kind::key, v.WindowOf(help), 9, 0}, {FedEvent::Kind::key, v.WindowOf(help), kKeyEnd, 0}});
  EXPECT_EQ(LayoutOf(v.session.menus.kit, help).elements[0].top, lines - 40);
  constexpr int kEscape = 27;
  v.Key(kEscape, 0, v.WindowOf(help));  // out of the list
  EXPECT_NE(v.session.menus.m_help, 0);
  v.Key(kEscape, 0, v.WindowOf(help));
  EXPECT_EQ(v.session.menus.m_help, 0);
}

}  // namespace
}  // namespace zaview
