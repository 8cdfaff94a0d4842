// Steps of any layout for tests, told by letters: their lists as numbers, as text and as a companion, and what a case
// must hold when they are read. Letters: t time, p v a pmgg vmg acc, 1..5 force slots, F X forces, M X moments,
// L X forces and moments of each kind, Y the same of Y kinds, c r n the scalars, d six values that nobody keeps,
// m i tadm fimp of one ship.
#pragma once

#include <cstdint>
#include <cstring>
#include <iterator>
#include <string>
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

inline CaseStore DraftCase(const StepDraft& draft, int nstep) {
  CaseStore c;
  c.labels.VERSION = draft.version;
  c.labels.gyre = draft.gyre;
  c.NSHIP = draft.ships;
  c.ship = draft.ship;
  c.control.AUXOUT[0] = draft.mode, c.control.MOTYPE = draft.motype, c.control.NSTEP = nstep;
  c.control.GRAVOUT = 4;  // with RHOOUT 2: time by 2, forces by 8, moments by 8
  c.control.RHOOUT = 2;
  c.control.LENOUT = 1;
  c.loads.NBCA = 2;
  c.loads.nycut = 1;
  c.loads.x_kinds = {1, 3};
  c.loads.y_kinds = {5};
  return c;
}

inline std::vector<StepHistory*> Histories(CaseStore& c) {
  std::vector<StepHistory*> all = {&c.time,       &c.pmgg,       &c.vmg,      &c.acc,  &c.force,
                                   &c.rudder_cmd, &c.rudder_ang, &c.prop_rps, &c.tadm, &c.fimp};
  for (std::size_t kind = 0; kind < 6; ++kind) all.insert(all.end(), {&c.load_force[kind], &c.load_moment[kind]});
  return all;
}

inline void ExpectStored(CaseStore& got, CaseStore& expected, const std::string& what) {
  for (std::size_t i = 0; i < Histories(got).size(); ++i)
    EXPECT_TRUE(Histories(got)[i]->component == Histories(expected)[i]->component) << what << ", history " << i;
}

using Lists = std::vector<std::vector<float>>;

// The lists of one step: each real is another one. Those that count are put into expected as the next step.
class DraftWriter {
 public:
  DraftWriter(const StepDraft& draft, CaseStore& expected) : draft_(draft), c_(expected) {
    const std::string letters = draft.lists;
    const bool x = letters.find_first_of("FL") != std::string::npos, y = letters.find('Y') != std::string::npos;
    c_.time.component.resize(1);
    for (StepHistory* history : {&c_.tadm, &c_.fimp}) history->component.resize(impulsive() ? 6 : 0);
    if (impulsive()) return;
    for (StepHistory* history : {&c_.pmgg, &c_.vmg, &c_.acc}) history->component.resize(6);
    c_.force.component.resize(30);
    for (StepHistory* history : {&c_.rudder_cmd, &c_.rudder_ang, &c_.prop_rps}) history->component.resize(1);
    for (StepHistory* loads : {c_.load_force.data(), c_.load_moment.data()}) {
      for (const int kind : {0, 2}) loads[kind].component.resize(x ? 2 : 0);
      loads[4].component.resize(y ? 1 : 0);
    }
  }

  Lists Step(int step, float time) {
    for (StepHistory* history : Histories(c_))
      for (std::vector<float>& column : history->component) column.push_back(0);
    step_ = step;
    time_ = time;
    given_ = 0;
    Lists lists;
    for (const char* at = draft_.lists; *at != 0;) {
      const std::size_t size = std::strcspn(at, " ");
      const bool each = *at == 'S';
      for (int ship = 1; ship <= (each ? draft_.ships : 1); ++ship) {
        lists.emplace_back();
        for (std::size_t i = each ? 1 : 0; i < size; ++i) Letter(at[i], !each || ship == draft_.ship, lists.back());
      }
      at += size + (at[size] == ' ' ? 1 : 0);
    }
    return lists;
  }

 private:
  [[nodiscard]] bool impulsive() const { return draft_.motype == 1; }
  void Put(StepHistory& history, std::size_t first, std::size_t n, bool counts, std::vector<float>& list) {
    for (std::size_t i = 0; i < n; ++i) {
      list.push_back(static_cast<float>(step_) + static_cast<float>(++given_) / 64);
      if (counts) history.component[first + i].back() = list.back() / (impulsive() ? 8 : 1);
    }
  }
  void Letter(char letter, bool counts, std::vector<float>& list) {
    if (letter == 't') {
      list.push_back(time_);
      c_.time.component[0].back() = impulsive() ? time_ * 2 : time_;
    } else if (letter == 'd') {
      list.insert(list.end(), 6, -777);
    } else if (letter >= '1' && letter <= '5') {
      Put(c_.force, static_cast<std::size_t>(letter - '1') * 6, 6, counts, list);
    } else if (std::strchr("FMLY", letter) != nullptr) {
      for (const std::size_t kind : letter == 'Y' ? std::vector<std::size_t>{4} : std::vector<std::size_t>{0, 2})
        for (StepHistory* loads : {&c_.load_force[kind], &c_.load_moment[kind]})
          if (letter != (loads == &c_.load_force[kind] ? 'M' : 'F'))
            Put(*loads, 0, loads->component.size(), counts, list);
    } else if (letter == 'm' || letter == 'i') {
      for (int ship = 1; ship <= draft_.ships; ++ship)
        Put(letter == 'm' ? c_.tadm : c_.fimp, 0, 6, ship == draft_.ship, list);
    } else {
      StepHistory* const plain[] = {&c_.pmgg, &c_.vmg, &c_.acc, &c_.rudder_cmd, &c_.rudder_ang, &c_.prop_rps};
      StepHistory& history = *plain[std::string("pvacrn").find(letter)];
      Put(history, 0, history.component.size(), counts, list);
    }
  }

  const StepDraft& draft_;
  CaseStore& c_;
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

}  // namespace zaview
