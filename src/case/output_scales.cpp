#include "case/output_scales.h"

#include <cmath>

#include "base/number_parse.h"

namespace zaview {

const std::array<ConventionRow, 3> kConventions{{
    {Convention::zavo,
     "ZAVO",
     {" ZAVO : +X forward, +Y to port, +Z up;", "      : +roll to stbd, +pitch bow down, +yaw bow to port"},
     {1, 1, 1, 1, 1, 1}},
    {Convention::model,
     "MODEL",
     {" MODEL: +X forward, +Y to stbd, +Z down;", "      : +roll to stbd, +pitch bow up, +yaw bow to starboard"},
     {1, -1, -1, 1, -1, -1}},
    {Convention::cfd,
     "CFD",
     {" CFD  : +X aft, +Y to stbd, +Z up;", "      : +roll to port, +pitch bow up, +yaw bow to port"},
     {-1, -1, 1, -1, -1, 1}},
}};

namespace {

std::array<float, 6> SixFactors(double translation, double rotation) {
  const auto t = static_cast<float>(translation);
  const auto r = static_cast<float>(rotation);
  return {t, t, t, r, r, r};
}

}  // namespace

void set_output_scales(OutputUnits& units, bool impulsive) {
  const double g = AsWritten(units.GRAVOUT);
  const double r = AsWritten(units.RHOOUT);
  const double L = AsWritten(units.LENOUT);
  const double a = AsWritten(units.ANGOUT);
  OutputScales scales;  // all 1
  scales.T = static_cast<float>(std::sqrt(L / g));
  if (!impulsive) {
    const double force = r * g * L * L * L;
    scales.position = SixFactors(L, a);
    scales.velocity = SixFactors(std::sqrt(L * g), std::sqrt(g / L) * a);
    scales.acceleration = SixFactors(g, g * a / L);
    scales.force = SixFactors(force, force * L);
    scales.load_force = scales.force[0];
    scales.load_moment = scales.force[3];
    scales.angle = static_cast<float>(a);
    scales.prop_rps = static_cast<float>(std::sqrt(g / L));
  }
  units.scales = scales;
}

void AdoptFileScales(OutputSettings& settings, const CaseStore& case_store) {
  struct {
    float* scale;
    double of_file;
  } const pairs[] = {{&settings.units.GRAVOUT, case_store.control.GRAVOUT},
                     {&settings.units.RHOOUT, case_store.control.RHOOUT},
                     {&settings.units.LENOUT, case_store.control.LENOUT},
                     {&settings.units.ANGOUT, case_store.control.ANGOUT}};
  for (std::size_t i = 0; i < settings.units.user_scale.size(); ++i)
    if (!settings.units.user_scale[i]) *pairs[i].scale = static_cast<float>(pairs[i].of_file);
  set_output_scales(settings.units, !case_store.time_history());
}

}  // namespace zaview
