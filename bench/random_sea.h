// A sea of many components, the same at each run: frequencies evenly spread, headings within 40 degrees of the bow.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <random>

#include "waves/incident_wave.h"

namespace zaview {

struct RandomSea {  // non-dimensional
  std::size_t components = 500;
  float least_frequency = 0.5F, band = 2.5F;
  float most_amplitude = 0.002F;
};

inline IncidentWave MakeSea(const RandomSea& sea) {
  std::mt19937 random(11);
  std::uniform_real_distribution<float> unit(0.0F, 1.0F);
  Seaway seaway;
  seaway.ISEA = 1;
  for (std::size_t i = 0; i < sea.components; ++i) {
    seaway.waves.FREQW.push_back(sea.least_frequency + sea.band * unit(random));
    seaway.waves.PHASEW.push_back(360.0F * unit(random));
    seaway.waves.AMPW0.push_back(sea.most_amplitude * unit(random));
    seaway.waves.HEADW.push_back(140.0F + 80.0F * unit(random));
  }
  IncidentWave wave;
  if (!PrepareIncidentWave(seaway, wave)) std::abort();
  return wave;
}

}  // namespace zaview
