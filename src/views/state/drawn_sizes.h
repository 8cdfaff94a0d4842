// Sizes of texts, marks and lines that keys and menus set: the same ones in every view.
#pragma once

namespace zaview {

// They stay where something can be seen of them.
inline constexpr float kLeastText = 0.02F, kMostText = 1.0F;   // page units
inline constexpr float kLeastMark = 0.05F, kMostMark = 50.0F;  // factor

// By a factor, within these; one key makes them so much larger.
inline constexpr float kTextFactor = 1.1F, kMarkFactor = 1.414F;
void ScaleText(float& size, float factor);
void ScaleMark(float& size, float factor);

// Of lines, in page units: thin, 0.04, 0.08, and thin again.
void NextThickness(float& thickness);

}  // namespace zaview
