// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

namespace browser {

/// While it lives, the right mouse button opens no menu over a page of the browser control of
/// Windows: the clicks of the thread are seen before its windows get them. Over anything else they
/// go on. Where there is no such control, pages have no menu anyway, and nothing happens.
class RightButtonBlock
{
public:
    RightButtonBlock();
    ~RightButtonBlock();
    RightButtonBlock(const RightButtonBlock &) = delete;
    RightButtonBlock &operator=(const RightButtonBlock &) = delete;
};

} // namespace browser
