#include "case/settings/point_settings.h"

#include "case/quantity_catalogue.h"

namespace zaview {
namespace {

bool IsMissile(int iqnt) {
  const QuantityRow* row = FindQuantity(iqnt);
  return row != nullptr && row->need == QuantityNeed::missile;
}

}  // namespace

void RememberPoint(const QuantityRequest& request, PointSettings& point) {
  if (!IsPointQuantity(request.iqnt)) return;
  point.given = true;
  point.point = request.point;
  if (!IsMissile(request.iqnt)) return;
  point.missile_given = true;
  point.missile = request.missile;
}

void SetPointCoordinate(std::size_t i, double value, PointSettings& point) {
  point.given = true;
  point.point[i] = value;
}

void SetMissileCoefficient(std::size_t i, float value, PointSettings& point) {
  point.given = point.missile_given = true;
  point.missile[i] = value;
}

void UsePoint(const PointSettings& point, QuantityRequest& request) {
  if (!IsPointQuantity(request.iqnt)) return;
  request.point = point.point;
  if (IsMissile(request.iqnt)) request.missile = point.missile;
}

}  // namespace zaview
