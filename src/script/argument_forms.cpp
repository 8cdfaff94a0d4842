#include "script/argument_forms.h"

namespace zaview {

namespace {

// clang-format off
constexpr ArgumentForm kForms[] = {
    {"sel",         "MOT",      "A quantity, by its word"},
    {"tail",        "3",        "The curve of the quantity, from 1. Of a point quantity x y z of the point stand ahead of it; POINT_MISS has x y z, 1, and four coefficients in its place. In an IRF case the index of the function and a curve stand for sel and tail"},
    {"curves",      "ALL",      "As tail; ALL in the place of the curve stands for all of the quantity"},
    {"place",       "",         "Nothing; of a point quantity x y z of the point, of POINT_MISS its eight numbers"},
    {"load",        "VBM",      "A quantity of sectional loads"},
    {"stat",        "MEAN",     "A statistic; _CI behind its word asks for the confidence interval as well"},
    {"interval",    "MEAN",     "MEAN, STDEV, VARIANCE or SIG_AMP"},
    {"text",        "\"Heave\"", "A label; in quotes if blanks are in it, \"\" for none"},
    {"file",        "out.txt",  "The file to write, \"\" for the console. :APPEND behind the name adds to the file, :UNFORMATTED writes 4-byte reals (time histories alone); both may stand"},
    {"table",       "t.txt",    "The file to write, \"\" for the console"},
    {"forecast",    "0",        "0: as they are, which says that nothing changes; 1: by velocity and acceleration"},
    {"ahead",       "1",        "How far, in output time"},
    {"picture",     "p.png",    "The file of the picture (.png, .gif, .bmp). \"\" shows the plot in the window until q is pressed, auto takes the next free number, on sends every further plot to a file, off ends that"},
    {"name",        "run.out",  "A file that is read; of runs * ? and [..] match several"},
    {"root",        "out",      "The name that files begin with"},
    {"motions",     "m.mot",    "KINO file of motions (.mot may be left out)"},
    {"seaway",      "\"\"",     "KINO file of the sea; CALM or \"\" for calm water"},
    {"geometry",    "\"\"",     "Geometry file, \"\" for none. HRL:, NASTRAN: or another format ahead of the name says what it is"},
    {"ship",        "1",        "Index of the ship, from 1"},
    {"vcg",         "0",        "Height of its centre of gravity"},
    {"first",       "1",        "The first of a range"},
    {"last",        "50",       "The last of a range"},
    {"initial",     "5",        "Steps at the beginning of the record"},
    {"terminal",    "5",        "Steps at its end"},
    {"step",        "2",        "A time step, or every so many"},
    {"steps",       "7",        "A number of time steps"},
    {"number",      "2",        "A number"},
    {"gravity",     "9.81",     "Acceleration due to gravity"},
    {"density",     "1025",     "Mass density of the water"},
    {"length",      "100",      "A length"},
    {"angle",       "57.29578", "What one radian is shown as: 57.29578 for degrees"},
    {"x",           "0",        "Coordinates of a point, in the axes and the unit of the ship's geometry"},
    {"y",           "0",        ""},
    {"z",           "0",        ""},
    {"xcg",         "0",        "The centre of gravity in the geometry's coordinates"},
    {"ycg",         "0",        ""},
    {"zcg",         "0",        ""},
    {"width",       "600",      "Extent along x"},
    {"height",      "400",      "Extent along y"},
    {"yes",         "ON",       "ON or YES, OFF or NO; \"\" is a yes"},
    {"probability", "0.9",      "A probability"},
    {"ratio",       "0.1",      "A number between 0 and 1"},
    {"heading",     "180",      "Where the waves go, in degrees: 180 are head seas"},
    {"low",         "0.3",      "The lowest wave frequency, rad per output time"},
    {"high",        "1.5",      "The highest one"},
    {"records",     "2",        "A number of records"},
    {"option",      "1",        "What is to be done, by its number"},
    {"least",       "-1",       "Lowest level, in the unit shown"},
    {"most",        "1",        "Highest level"},
    {"increment",   "0.5",      "From one to the next"},
    {"threshold",   "0.5",      "A level, in the unit shown"},
    {"dependence",  "0",        "Steps within which exceedances are one event; 0: the dependence time"},
    {"panel",       "0",        "One of the graphs of a result, from 1; 0: all of them"},
    {"graph",       "1",        "A graph, 1 to 4"},
    {"graphs",      "0",        "The same, or 0 for all of them"},
    {"look",        "MARK",     "A property of a graph, by its first letters"},
    {"setting",     "TITLE",    "A setting of the animation, by its first letters"},
    {"value",       "ON",       "What it is set to"},
    {"event",       "ROLL_MAX", "What to look at: ROLL_MAX, ROLL_MIN, PITCH_MAX, PITCH_MIN, SLAM, DECK_WET"},
    {"seconds",     "30",       "How long, half of it ahead of the event"},
    {"pictures",    "run.mp4",  "Where a picture of each step goes: auto, name.png, a video name.mp4"},
    {"balance",     "1",        "What is kept at each angle: 0 nothing, 1 the buoyancy of the upright ship, 2 its trim moment as well, 3 the buoyancy in calm water, 4 its trim moment as well"},
    {"wave",        "0",        "How waves are taken: 0 directly, 1 from a table, 2 with decay by the local wave number, 3 by that of the seaway"},
    {"heel",        "60",       "Largest heel (trim) to each side, degrees"},
    {"arms",        "gz.txt",   "The file of the curves, \"\" for the console"},
    {"statistics",  "gzs.txt",  "The file of their statistics, \"\" for the console; name.gm (metacentric heights, volume) and name.wl (waterlines) are written beside it"},
    {"hours",       "3",        "Hours of output time, in seconds"},
    {"quantile",    "0.99",     "A probability between 0 and 1"},
    {"count",       "1",        "How many"},
    {"time",        "1",        "A time"},
    {"lookdown",    "10",       "Half of the field of view of a sensor, 0 to 90 degrees from the level of the ship at rest"},
    {"direction",   "0",        "A direction from the bow in degrees, 90 to port"},
    {"directions",  "0 180 90", "The least of such directions, the largest, and from one to the next"},
    {"distances",   "50 150 50", "The least distance from the sensor, the largest, and from one to the next, in the unit of the ship's geometry"},
    {"axis",        "0 50 3",   "The least and the largest coordinate of a grid and how many there are: first x, then y, then z"},
    {"places",      "2 50 150", "How many distances from the sensor, and these"},
};
// clang-format on

}  // namespace

std::span<const ArgumentForm> ArgumentForms() {
  return kForms;
}

}  // namespace zaview
