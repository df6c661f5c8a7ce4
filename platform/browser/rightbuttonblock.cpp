// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/rightbuttonblock.h"

namespace browser {

RightButtonBlock::RightButtonBlock() = default;
RightButtonBlock::~RightButtonBlock() = default;

} // namespace browser
