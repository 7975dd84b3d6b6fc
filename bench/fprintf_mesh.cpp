#include "fprintf_mesh.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace {

constexpr int kLineLimit = 4094;

// The current line, and the file that takes it when it is whole.
struct Lines {
  std::FILE* file;
  char line[kLineLimit + 2] = {};
  int length = 0;
};

[[gnu::format(printf, 2, 3)]] void Print(Lines& lines, const char* format, ...) {
  char text[kLineLimit + 1];
  std::va_list arguments;
  va_start(arguments, format);
  const int length = std::vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  if (lines.length + length >= kLineLimit) {
    std::fprintf(lines.file, "%s\n", lines.line);
    std::memcpy(lines.line, "  ", 2);
    lines.length = 2;
  }
  std::memcpy(lines.line + lines.length, text, static_cast<std::size_t>(length) + 1);
  lines.length += length;
  if (lines.line[lines.length - 1] == '\n') {
    std::fprintf(lines.file, "%s", lines.line);
    lines.length = 0;
  }
}

}  // namespace

bool WriteMeshWithFprintf(const std::string& path, const ON_Mesh& mesh) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return false;
  Lines lines{file};
  Print(lines, "PointsPolygons [ ");
  for (const ON_MeshFace& face : mesh.m_F) Print(lines, face.IsTriangle() ? "3 " : "4 ");
  Print(lines, "] [");
  for (const ON_MeshFace& face : mesh.m_F) {
    Print(lines, "%d %d %d ", face.vi[0], face.vi[1], face.vi[2]);
    if (!face.IsTriangle()) Print(lines, "%d ", face.vi[3]);
  }
  Print(lines, "]\n");
  Print(lines, " \"P\" [ ");
  for (const ON_3fPoint& p : mesh.m_V) Print(lines, "%g %g %g ", p.x, p.y, p.z);
  Print(lines, " ] \"N\" [ ");
  for (const ON_3fVector& n : mesh.m_N) Print(lines, "%g %g %g ", n.x, n.y, n.z);
  Print(lines, "] \"st\" [ ");
  for (const ON_2fPoint& st : mesh.m_T) Print(lines, "%g %g ", st.x, 1.0 - st.y);
  Print(lines, "]\n");
  const bool failed = std::ferror(file) != 0;
  return std::fclose(file) == 0 && !failed;
}
