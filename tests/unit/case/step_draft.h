// Steps of any layout for tests, told by letters: their lists as numbers, as text and as a companion, and what a case
// must hold when they are read. Letters: t time, p v a pmgg vmg acc, 1..5 force slots, F X forces, M X moments,
// L X forces and moments of each kind, Y the same of Y kinds, c r n the scalars, d six values that nobody keeps,
// m i tadm fimp of one ship.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "case/case_store.h"

namespace zaview {

struct StepDraft {
  const char* lists;  // apart by blanks; an upper case S ahead of one: it stands once for each ship
  int version = 417;
  bool gyre = false;
  int ships = 1, ship = 1, mode = 0, motype = 2;
};

constexpr int kDraftXCuts = 2, kDraftYCuts = 1;
constexpr int kDraftXKinds[] = {1, 3}, kDraftYKinds[] = {5};

inline CaseStore DraftCase(const StepDraft& draft, int nstep) {
  CaseStore c;
  c.labels.VERSION = draft.version;
  c.labels.gyre = draft.gyre;
  c.NSHIP = draft.ships;
  c.ship = draft.ship;
  c.control.AUXOUT[0] = draft.mode;
  c.control.MOTYPE = draft.motype;
  c.control.NSTEP = nstep;
  c.control.GRAVOUT = 4;  // with RHOOUT 2: time by 2, forces by 8, moments by 8
  c.control.RHOOUT = 2;
  c.control.LENOUT = 1;
  c.loads.NBCA = kDraftXCuts;
  c.loads.nycut = kDraftYCuts;
  c.loads.x_kinds.assign(std::begin(kDraftXKinds), std::end(kDraftXKinds));
  c.loads.y_kinds.assign(std::begin(kDraftYKinds), std::end(kDraftYKinds));
  return c;
}

using Lists = std::vector<std::vector<float>>;

// The lists of one step: each real is another one. Those that count are put into expected as the next step.
class DraftWriter {
 public:
  DraftWriter(const StepDraft& draft, CaseStore& expected) : draft_(draft), c_(expected) {
    Make(c_.time, 1);
    if (draft.motype == 1) {
      Make(c_.tadm, 6);
      Make(c_.fimp, 6);
      return;
    }
    const std::string letters = draft.lists;
    for (StepHistory* history : {&c_.pmgg, &c_.vmg, &c_.acc}) Make(*history, 6);
    Make(c_.force, 30);
    for (StepHistory* history : {&c_.rudder_cmd, &c_.rudder_ang, &c_.prop_rps}) Make(*history, 1);
    if (letters.find_first_of("FL") != std::string::npos)
      for (const int kind : kDraftXKinds) MakeKind(kind, kDraftXCuts);
    if (letters.find('Y') != std::string::npos)
      for (const int kind : kDraftYKinds) MakeKind(kind, kDraftYCuts);
  }

  Lists Step(int step, float time) {
    for (std::vector<float>* column : columns_) column->push_back(0);
    step_ = step;
    time_ = time;
    given_ = 0;
    Lists lists;
    for (const char* at = draft_.lists; *at != 0;) {
      const std::size_t size = std::strcspn(at, " ");
      const bool each = *at == 'S';
      for (int ship = 1; ship <= (each ? draft_.ships : 1); ++ship)
        lists.push_back(List(std::string(at, size), !each || ship == draft_.ship));
      at += size + (at[size] == ' ' ? 1 : 0);
    }
    return lists;
  }

 private:
  void Make(StepHistory& history, std::size_t components) {
    history.component.resize(components);
    for (std::vector<float>& column : history.component) columns_.push_back(&column);
  }
  void MakeKind(int kind, std::size_t cuts) {
    Make(c_.load_force[static_cast<std::size_t>(kind - 1)], cuts);
    Make(c_.load_moment[static_cast<std::size_t>(kind - 1)], cuts);
  }
  std::vector<float> List(const std::string& letters, bool counts) {
    std::vector<float> list;
    for (const char letter : letters) Letter(letter, counts, list);
    return list;
  }
  void Put(StepHistory& history, std::size_t first, std::size_t n, bool counts, std::vector<float>& list,
           float divisor = 1) {
    for (std::size_t i = 0; i < n; ++i) {
      list.push_back(static_cast<float>(step_) + static_cast<float>(++given_) / 64);
      if (counts) history.component[first + i].back() = list.back() / divisor;
    }
  }
  void PutLoads(std::size_t kind, bool force, bool moment, bool counts, std::vector<float>& list) {
    StepHistory &f = c_.load_force[kind - 1], &m = c_.load_moment[kind - 1];
    if (force) Put(f, 0, f.component.size(), counts, list);
    if (moment) Put(m, 0, m.component.size(), counts, list);
  }
  void Letter(char letter, bool counts, std::vector<float>& list) {
    constexpr float kTimeFactor = 2, kScale = 8;
    const bool impulsive = draft_.motype == 1;
    if (letter == 't') {
      list.push_back(time_);
      c_.time.component[0].back() = impulsive ? time_ * kTimeFactor : time_;
    } else if (letter == 'd') {
      for (int i = 0; i < 6; ++i) list.push_back(-777);
    } else if (letter >= '1' && letter <= '5') {
      Put(c_.force, static_cast<std::size_t>(letter - '1') * 6, 6, counts, list);
    } else if (letter == 'F' || letter == 'M' || letter == 'L') {
      for (const int kind : kDraftXKinds)
        PutLoads(static_cast<std::size_t>(kind), letter != 'M', letter != 'F', counts, list);
    } else if (letter == 'Y') {
      for (const int kind : kDraftYKinds) PutLoads(static_cast<std::size_t>(kind), true, true, counts, list);
    } else if (letter == 'm' || letter == 'i') {
      for (int ship = 1; ship <= draft_.ships; ++ship)
        Put(letter == 'm' ? c_.tadm : c_.fimp, 0, 6, ship == draft_.ship, list, kScale);
    } else {
      const std::pair<char, StepHistory*> plain[] = {
          {'p', &c_.pmgg      },
          {'v', &c_.vmg       },
          {'a', &c_.acc       },
          {'c', &c_.rudder_cmd},
          {'r', &c_.rudder_ang},
          {'n', &c_.prop_rps  }
      };
      for (const auto& [name, history] : plain)
        if (name == letter) Put(*history, 0, history->component.size(), counts, list);
    }
  }

  const StepDraft& draft_;
  CaseStore& c_;
  std::vector<std::vector<float>*> columns_;
  int step_ = 0, given_ = 0;
  float time_ = 0;
};

inline std::string ListText(const Lists& lists) {
  std::string text;
  for (const std::vector<float>& list : lists) {
    for (std::size_t i = 0; i < list.size(); ++i)
      fmt::format_to(std::back_inserter(text), " {:.8E}{}", list[i], i % 6 == 5 ? "\n" : "");
    text += '\n';
  }
  return text;
}

template <typename T>
std::string BytesOf(const T& value) {
  std::string bytes(sizeof value, '\0');
  std::memcpy(bytes.data(), &value, sizeof value);
  return bytes;
}

inline std::string Record(const std::string& content) {
  const std::string mark = BytesOf(static_cast<std::int32_t>(content.size()));
  return mark + content + mark;
}

inline std::string VersionRecord(std::int32_t version) {
  return Record(BytesOf(version));
}

inline std::string HeaderRecord(std::int32_t index, float time) {
  return Record(BytesOf(index) + BytesOf(time) + BytesOf(std::int32_t{0}));
}

// The first list is the time of the header, the others are the bodies.
inline std::string StepRecords(int index, const Lists& lists) {
  std::string bytes = HeaderRecord(index, lists[0][0]);
  for (std::size_t i = 1; i < lists.size(); ++i) {
    std::string body;
    for (const float value : lists[i]) body += BytesOf(value);
    bytes += Record(body);
  }
  return bytes;
}

inline void ExpectHistory(const StepHistory& got, const StepHistory& expected, const std::string& what) {
  ASSERT_EQ(got.components(), expected.components()) << what;
  for (std::size_t i = 0; i < got.component.size(); ++i)
    EXPECT_EQ(got.component[i], expected.component[i]) << what << ' ' << i + 1;
}

inline void ExpectStored(const CaseStore& got, const CaseStore& expected, const std::string& what) {
  ExpectHistory(got.time, expected.time, what + " time");
  ExpectHistory(got.pmgg, expected.pmgg, what + " pmgg");
  ExpectHistory(got.vmg, expected.vmg, what + " vmg");
  ExpectHistory(got.acc, expected.acc, what + " acc");
  ExpectHistory(got.force, expected.force, what + " force");
  for (std::size_t kind = 0; kind < 6; ++kind) {
    ExpectHistory(got.load_force[kind], expected.load_force[kind], fmt::format("{} force of kind {}", what, kind + 1));
    ExpectHistory(got.load_moment[kind], expected.load_moment[kind],
                  fmt::format("{} moment of kind {}", what, kind + 1));
  }
  ExpectHistory(got.rudder_cmd, expected.rudder_cmd, what + " rudder_cmd");
  ExpectHistory(got.rudder_ang, expected.rudder_ang, what + " rudder_ang");
  ExpectHistory(got.prop_rps, expected.prop_rps, what + " prop_rps");
  ExpectHistory(got.tadm, expected.tadm, what + " tadm");
  ExpectHistory(got.fimp, expected.fimp, what + " fimp");
}

}  // namespace zaview
