#pragma once

#include <vector>

// Tables whose parts are named by their positions, as ints.

template <class T>
bool ON_IsIn(int index, const std::vector<T>& table) {
  return index >= 0 && static_cast<std::size_t>(index) < table.size();
}

// The part at a position that is in the table.
template <class Table>
auto& ON_At(Table& table, int index) {
  return table[static_cast<std::size_t>(index)];
}

// Drops all parts but those that are kept, which stay in their order. Returns the new position of
// each, -1 for what was dropped.
template <class T>
std::vector<int> ON_Keep(std::vector<T>& table, const std::vector<bool>& is_kept) {
  std::vector<int> position(table.size(), -1);
  std::size_t count = 0;
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (!is_kept[i]) continue;
    position[i] = static_cast<int>(count);
    if (i != count) table[count] = std::move(table[i]);
    ++count;
  }
  table.resize(count);
  return position;
}
