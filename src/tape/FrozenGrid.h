#pragma once

#include "forms/Grid.h"

namespace pellora {

/// Keeps a grid from repainting for as long as it lives.
class FrozenGrid {
 public:
  explicit FrozenGrid(Grid& grid) : m_grid(grid) { m_grid.Redraw(false); }
  ~FrozenGrid() { m_grid.Redraw(true); }
  FrozenGrid(const FrozenGrid&) = delete;
  FrozenGrid& operator=(const FrozenGrid&) = delete;

 private:
  Grid& m_grid;
};

}  // namespace pellora
