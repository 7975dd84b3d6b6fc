#include "host/geometry/on_tables.h"

bool ON_Texture::IsTiled(int dir, double* count, double* offset) const {
  *count = 1;
  *offset = 0;
  if (dir < 0 || dir > 2) return false;
  int tiledRow = -1;
  for (int row = 0; row < 3; ++row) {
    bool dependsOnOthers = false;
    for (int column = 0; column < 3; ++column) {
      dependsOnOthers = dependsOnOthers || (column != dir && m_uvw.m_xform[row][column] != 0);
    }
    if (dependsOnOthers) continue;
    if (tiledRow >= 0) return false;
    tiledRow = row;
  }
  if (tiledRow < 0) return false;
  *count = m_uvw.m_xform[tiledRow][dir];
  *offset = m_uvw.m_xform[tiledRow][3];
  return true;
}

int ON_Material::FindTexture(const char* file_name, ON_Texture::Type type, int after) const {
  const std::size_t first = after < 0 ? 0 : static_cast<std::size_t>(after) + 1;
  for (std::size_t i = first; i < m_textures.size(); ++i) {
    const ON_Texture& texture = m_textures[i];
    if (texture.m_type != type) continue;
    if (file_name != nullptr && texture.m_image_file != file_name) continue;
    return static_cast<int>(i);
  }
  return -1;
}
