#include "analysis/frequency_domain/frequency_case.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "case/read/irf_sections.h"
#include "control/input_scales.h"

namespace zaview {
namespace {

constexpr double kSameHeading = 1e-3;  // degrees

bool IsFollowing(IrfKind kind) {
  return IsDiffraction(kind) && kind != IrfKind::diffraction_head;
}

SixRecords ComponentsOf(const StepHistory& history) {
  SixRecords records;
  for (std::size_t i = 0; i < std::min(kModes, history.component.size()); ++i) records[i] = history.component[i];
  return records;
}

std::span<const float> TimesOf(const IrfBlock& block) {
  if (block.time.component.empty()) return {};
  return block.time.component[0];
}

double TauOf(const CaseStore& store, double heading) {
  const double U = store.control.USHIP * InputScalesOf(store.control).velocity;
  return U * std::cos(heading * std::numbers::pi / 180);
}

SixBySix MassOf(const CaseStore& store) {
  SixBySix M{};
  const auto ship = static_cast<std::size_t>(store.ship - 1);
  if (ship >= store.ships.size()) return M;
  const DerivedShip& body = store.ships[ship];
  for (std::size_t i = 0; i < 3; ++i) {
    M[i][i] = body.mass;
    for (std::size_t j = 0; j < 3; ++j) M[3 + i][3 + j] = body.inertia[i][j];
  }
  return M;
}

HeadingGroup& GroupOf(const CaseStore& store, const IrfBlock& block, std::vector<HeadingGroup>& groups) {
  const bool following = IsFollowing(block.kind);
  const auto found = std::find_if(groups.begin(), groups.end(), [&](const HeadingGroup& group) {
    return group.following == following && std::abs(group.heading - block.heading) < kSameHeading;
  });
  if (found != groups.end()) return *found;
  HeadingGroup group;
  group.following = following;
  group.heading = block.heading;
  group.tau = TauOf(store, block.heading);
  groups.push_back(group);
  return groups.back();
}

enum class Depth : unsigned char { outline, all };

void TakeRadiation(const IrfBlock& block, Depth depth, ResponseModel& model) {
  const int motion = MotionOf(block.kind);
  const bool known = std::any_of(model.radiation.begin(), model.radiation.end(),
                                 [motion](const RadiationTable& table) { return table.motion == motion; });
  if (known) return;
  model.radiation.emplace_back();
  model.radiation.back().motion = motion;
  if (depth == Depth::all) model.radiation.back() = RadiationOf(block);
}

void TakeExcitation(const CaseStore& store, const IrfBlock& block, Depth depth, ResponseModel& model) {
  HeadingGroup& group = GroupOf(store, block, model.headings);
  int& table = group.branch_table[static_cast<std::size_t>(BranchOf(block.kind) - 1)];
  if (table >= 0) return;
  table = static_cast<int>(model.excitation.size());
  model.excitation.emplace_back();
  if (depth == Depth::all) model.excitation.back() = ExcitationOf(store, block);
}

ResponseModel MakeModel(const CaseStore& store, Depth depth) {
  ResponseModel model;
  model.M = MassOf(store);
  model.parts = PartsOf(store, store.ship);
  for (const IrfBlock& block : store.irfs) {
    if (block.ship != store.ship) continue;
    if (WorkOf(block) == IrfWork::radiation) TakeRadiation(block, depth, model);
    if (WorkOf(block) == IrfWork::diffraction) TakeExcitation(store, block, depth, model);
  }
  std::stable_sort(model.radiation.begin(), model.radiation.end(),
                   [](const RadiationTable& a, const RadiationTable& b) { return a.motion < b.motion; });
  return model;
}

}  // namespace

IrfWork WorkOf(const IrfBlock& block) {
  if (MotionOf(block.kind) > 0) return IrfWork::radiation;
  if (IsDiffraction(block.kind)) return IrfWork::diffraction;
  return block.kind == IrfKind::added_mass && block.has_matrices ? IrfWork::matrices : IrfWork::none;
}

int MotionOf(IrfKind kind) {
  if (kind < IrfKind::surge || kind > IrfKind::yaw) return 0;
  return static_cast<int>(kind) - static_cast<int>(IrfKind::surge) + 1;
}

int BranchOf(IrfKind kind) {
  if (!IsFollowing(kind)) return 1;
  return static_cast<int>(kind) - static_cast<int>(IrfKind::diffraction_follow_1) + 1;
}

std::vector<const IrfBlock*> TransformableBlocks(const CaseStore& store) {
  std::vector<const IrfBlock*> blocks;
  for (const IrfBlock& block : store.irfs)
    if (WorkOf(block) != IrfWork::none) blocks.push_back(&block);
  return blocks;
}

IndependentParts PartsOf(const CaseStore& store, int ship) {
  IndependentParts parts;
  const auto found = std::find_if(store.irfs.begin(), store.irfs.end(), [ship](const IrfBlock& block) {
    return block.ship == ship && WorkOf(block) == IrfWork::matrices;
  });
  if (found == store.irfs.end()) return parts;
  parts.read = true;
  SixBySix* const into[] = {&parts.A, &parts.B, &parts.C};
  for (std::size_t k = 0; k < std::size(into); ++k)
    for (std::size_t i = 0; i < kModes; ++i)
      for (std::size_t j = 0; j < kModes; ++j) (*into[k])[i][j] = found->matrices[k][i][j];
  return parts;
}

RadiationTable RadiationOf(const IrfBlock& block) {
  RadiationTable table;
  TransformRadiation(MotionOf(block.kind), TimesOf(block), ComponentsOf(block.force), table);
  return table;
}

RadiationTable RadiationOf(const CaseStore& store) {
  SixRecords force;
  for (int i = 1; i <= std::min(static_cast<int>(kModes), store.tadm.components()); ++i)
    force[static_cast<std::size_t>(i - 1)] = store.tadm.range(i, store.first_step, store.last_step);
  RadiationTable table;
  TransformRadiation(store.rvm, store.time.range(1, store.first_step, store.last_step), force, table);
  return table;
}

ExcitationTable ExcitationOf(const CaseStore& store, const IrfBlock& block) {
  ExcitationTable table;
  table.heading = block.heading;
  table.following = IsFollowing(block.kind);
  table.branch = BranchOf(block.kind);
  TransformExcitation(TimesOf(block), ComponentsOf(block.force), ComponentsOf(block.froude_krylov),
                      TauOf(store, block.heading), table);
  return table;
}

ResponseModel ModelOf(const CaseStore& store) {
  return MakeModel(store, Depth::all);
}

ResponseModel OutlineOf(const CaseStore& store) {
  return MakeModel(store, Depth::outline);
}

bool HasResponses(const CaseStore& store) {
  const auto has = [&store](IrfWork work) {
    return std::any_of(store.irfs.begin(), store.irfs.end(),
                       [&](const IrfBlock& block) { return block.ship == store.ship && WorkOf(block) == work; });
  };
  return store.irf_case && has(IrfWork::radiation) && has(IrfWork::diffraction);
}

}  // namespace zaview
