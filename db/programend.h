// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <optional>

/// Thrown to end the program from wherever it is, after the user has been told why. It may not
/// cross the toolkit's event code: see endOnFailure().
struct ProgramEnd
{
    int exitCode = 1;
};

/// Calls the function. Nothing if it returned; if it threw, the program's exit code, and the user
/// has been told why.
std::optional<int> exitCodeOf(const std::function<void()> &function);

/// What a handler of an event does that may have to end the program, by a ProgramEnd or by an
/// overflow. The program ends when the handler has returned.
void endOnFailure(const std::function<void()> &handler);
