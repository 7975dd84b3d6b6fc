#include "host/geometry/on_xform.h"

ON_Xform operator*(const ON_Xform& a, const ON_Xform& b) {
  ON_Xform product;
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column) {
      double sum = 0;
      for (std::size_t k = 0; k < 4; ++k) sum += a.m_xform[row][k] * b.m_xform[k][column];
      product.m_xform[row][column] = sum;
    }
  }
  return product;
}

ON_3dPoint operator*(const ON_Xform& xform, ON_3dPoint p) {
  std::array<double, 4> image{};
  for (std::size_t row = 0; row < 4; ++row) {
    const auto& m = xform.m_xform[row];
    image[row] = m[0] * p.x + m[1] * p.y + m[2] * p.z + m[3];
  }
  const double w = image[3] != 0 ? image[3] : 1;
  return {image[0] / w, image[1] / w, image[2] / w};
}
