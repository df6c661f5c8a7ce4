// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/grid/flexgrid.h"

namespace grid {

/// Keeps a grid from redrawing for as long as the lock lives. The grid has to outlive the lock.
class RedrawLock
{
public:
    explicit RedrawLock(FlexGrid *grid) : m_grid(grid) { m_grid->setRedraw(false); }
    ~RedrawLock() { m_grid->setRedraw(true); }
    Q_DISABLE_COPY_MOVE(RedrawLock)

private:
    FlexGrid *m_grid;
};

} // namespace grid
