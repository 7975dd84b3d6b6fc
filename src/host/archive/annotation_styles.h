#pragma once

#include <span>
#include <string>

#include "host/geometry/on_tables.h"

namespace host {

// A font, as documents up to version 5 keep a table of.
struct TextStyle {
  // The family's name.
  std::string face;
  bool bold = false;
  bool italic = false;

  void ApplyTo(ON_DimStyle& style) const {
    style.m_font = face;
    style.m_bold = bold;
    style.m_italic = italic;
  }
};

// Of weights from 100 to 900, of which 400 is the normal one.
inline bool IsBoldWeight(int weight) {
  return weight >= 600;
}

// Null when there is none.
inline const TextStyle* FindTextStyle(std::span<const TextStyle> styles, int index) {
  const bool is_inside = index >= 0 && static_cast<std::size_t>(index) < styles.size();
  return is_inside ? &styles[static_cast<std::size_t>(index)] : nullptr;
}

// The tables to which the annotations up to version 5 refer by position.
struct AnnotationStyles {
  std::span<const ON_DimStyle> dim_styles;
  std::span<const TextStyle> text_styles;
};

}  // namespace host
